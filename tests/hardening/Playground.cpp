#include "hardening/Playground.h"

#include "support/WaveBytes.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace {

// Every program that a desktop could be asked for, by the name under which it is looked for.
constexpr const char *Programs[] = {
    "csound",
    "csound-utils",
    "winsound",
    "xterm",
    "x-terminal-emulator",
    "gnome-terminal",
    "konsole",
    "xfce4-terminal",
    "lxterminal",
    "mate-terminal",
    "qterminal",
    "kitty",
    "alacritty",
    "foot",
    "gnome-calculator",
    "kcalc",
    "galculator",
    "mate-calc",
    "qalculate-gtk",
    "xcalc",
    "xdg-open",
    "gio",
    "xdg-mime",
    "xdg-icon-resource",
    "update-mime-database",
    "update-desktop-database",
    "gtk-update-icon-cache",
    "lp",
    "lpr",
    "lpstat",
    "gsettings",
};

// Only a compiler is told where to log; nothing else may take its time, as nobody would end it.
constexpr const char *StandIn = R"(#!/bin/sh
log=
for word in "$@"; do
    case $word in -O*) log=${word#-O} ;; esac
done
[ -n "$log" ] || exit 0
read -r way < '%1'
echo "Csound stand-in: $way" > "$log"
case $way in
    fail) echo 'error: syntax error, unexpected T_IDENT line 3' >> "$log"; exit 1 ;;
    slow) /bin/sleep 0.2 ;;
    hang) exec /bin/sleep 20 ;;
    crash) kill -SEGV $$ ;;
    remove) /bin/rm -f "$log" ;;
    flood) for i in 1 2 3 4 5 6 7 8 9 10 11 12; do /bin/cat "$0" >> "$log"; done ;;
esac
exit 0
)";

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

Playground::Playground(Dice &dice) : m_dice(dice)
{
    addDocuments();
    addStandIns();
}

void Playground::write(const QString &name, const QByteArray &bytes, bool executable) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(name));
    if (executable)
        file.setPermissions(file.permissions() | QFile::ExeOwner);
}

void Playground::addDocuments()
{
    QDirIterator files(QStringLiteral(TEST_SOURCE_DIR "/pieces"), QDir::Files);
    while (files.hasNext()) {
        const QString name = QFileInfo(files.next()).fileName();
        write(name, bytesOf(files.filePath()));
        m_documents.append(name);
    }
    write(QStringLiteral("short.wav"), WaveBytes::wave(2, 44100, QByteArray(40'000, '\x12')));
    write(QStringLiteral("cut.wav"), WaveBytes::wave(1, 8000, QByteArray(999, 'x')).first(60));
    write(QStringLiteral("numbered.bkm"), QByteArray("not a bookmark\n").repeated(50));
    m_documents << QStringLiteral("short.wav") << QStringLiteral("cut.wav")
                << QStringLiteral("numbered.bkm");
    m_documents.sort(); // the folder's own order differs from machine to machine
}

void Playground::addStandIns()
{
    QDir(m_folder.path()).mkpath(QStringLiteral("bin"));
    QDir(m_folder.path()).mkpath(QStringLiteral("sub"));
    changeStandIn();
    const QByteArray script =
        QString::fromLatin1(StandIn).arg(path(QStringLiteral("way"))).toUtf8();
    for (const char *name : Programs)
        write(QStringLiteral("bin/") + QLatin1String(name), script, true);
}

void Playground::changeStandIn()
{
    constexpr const char *ways[] = {"end",  "end",   "fail",   "slow",
                                    "hang", "crash", "remove", "flood"};
    write(QStringLiteral("way"), QByteArray(m_dice.pick(ways)) + '\n');
}

QString Playground::openable()
{
    const QString others[] = {path(QStringLiteral("sub")), path(QStringLiteral("missing.csd")),
                              QStringLiteral("/dev/null"), QStringLiteral("relative.orc")};
    return m_dice.chance(10) ? m_dice.pick(others) : path(m_dice.pick(m_documents));
}

QString Playground::savable()
{
    const QString names[] = {QStringLiteral("new.csd"),     QStringLiteral("new.orc"),
                             QStringLiteral("sub/new.csd"), QStringLiteral("x"),
                             QStringLiteral("sub"),         QStringLiteral("nowhere/new.csd")};
    return m_dice.chance(60) ? path(m_dice.pick(names)) : path(m_dice.pick(m_documents));
}

void Playground::meddle()
{
    const QString name = path(m_dice.pick(m_documents));
    QFile file(name);
    switch (m_dice.roll(4)) {
    case 0:
        file.setPermissions(QFile::ReadOwner);
        break;
    case 1:
        file.remove();
        break;
    case 2:
        if (file.open(QIODevice::WriteOnly))
            file.write(QByteArray("instr 1\r\nendin\n").repeated(m_dice.roll(300)));
        break;
    default:
        QDir(m_folder.path()).mkdir(name + QStringLiteral(".bkm"));
        break;
    }
}

QStringList Playground::litter() const
{
    QStringList found;
    QDirIterator files(m_folder.path(), {QStringLiteral(".ardiphon-*"), QStringLiteral("tmp.txt")},
                       QDir::AllEntries | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext())
        found.append(files.next());
    return found;
}
