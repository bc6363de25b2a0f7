#pragma once

#include "app/ConfigurationBlock.h"
#include "app/modRegistry.h"
#include "language/WordTables.h"
#include "start/ui/ChooserLabel.h"
#include "start/ui/Form1.h"
#include "start/ui/PictureButton.h"
#include "support/ScriptedDialogs.h"

#include <QTemporaryDir>
#include <QTest>

/// A start window with a settings file, word tables and dialogs of its own for every test. The
/// windows that it opens are only noted.
class Form1Fixture : public QObject
{
protected:
    /// To be called before each test.
    void setUp();
    /// To be called after it: "" where each dialog was asked as the test said.
    [[nodiscard]] QString tearDown() const;

    void load(const QString &commandText = {});
    void setRecent(int number, const QString &path);
    /// Rows of a document's path, quoted or not, with the window that opens it and the names that
    /// the configuration then holds: CSD, orchestra, score.
    static void addDocumentRows();
    ardiphon::PictureButton *picture(const char *name) const
    {
        return m_form->findChild<ardiphon::PictureButton *>(QString::fromLatin1(name));
    }
    ardiphon::ChooserLabel *label(int index) const
    {
        return m_form->findChild<ardiphon::ChooserLabel *>(
            QStringLiteral("LabelFiles(%1)").arg(index));
    }
    QStringList names() const
    {
        return {m_config->CSDFileName, m_config->OrchestraFileName, m_config->ScoreFileName};
    }
    QStringList litPictures() const;
    QList<int> litLabels() const;
    bool isDark() const { return litPictures().isEmpty() && litLabels().isEmpty(); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ardiphon::SettingsStore> m_store;
    std::unique_ptr<ardiphon::ConfigurationBlock> m_config;
    std::unique_ptr<ScriptedDialogs> m_dialogs;
    ardiphon::EditorWindows m_windows;
    std::unique_ptr<ardiphon::Form1> m_form;
    QStringList m_shown; ///< the windows that were opened, in order
};
