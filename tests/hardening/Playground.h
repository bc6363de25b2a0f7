#pragma once

#include "hardening/Dice.h"

#include <QStringList>
#include <QTemporaryDir>

/// A folder with documents that a careless user works on, and with harmless programs that stand in
/// for every external one. Nothing outside of it is written.
class Playground
{
public:
    explicit Playground(Dice &dice);

    QString path(const QString &name) const { return m_folder.filePath(name); }
    QString settingsFile() const { return path(QStringLiteral("settings.ini")); }
    QString standIn() const { return path(QStringLiteral("bin/csound")); }
    /// The folder in which the program believes to be installed. It may write there.
    QString programFolder() const { return path(QStringLiteral("program")); }

    QString manual() const { return path(QStringLiteral("manual/index.html")); }

    /// A document, or now and then a path that is none.
    QString openable();
    QString savable();
    /// Where a printer prints to, which is not always possible.
    QString printable();
    /// What the stand-ins do from now on: end at once, with errors or without, or take their time.
    void changeStandIn();
    /// Does to a file what another program might.
    void meddle();
    /// Files of the program's own that lie about and should not. Only after the program ended.
    QStringList litter() const;

private:
    void addDocuments();
    void addStandIns();
    void addProgramFolder();
    void addManual();
    void write(const QString &name, const QByteArray &bytes, bool executable = false) const;

    Dice &m_dice;
    QTemporaryDir m_folder;
    QStringList m_documents;
};
