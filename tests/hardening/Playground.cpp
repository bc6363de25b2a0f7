#include "hardening/Playground.h"

#include "support/FileBytes.h"
#include "support/WaveBytes.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

namespace {

// Every program that a desktop could be asked for, by the name under which it is looked for.
constexpr const char *Programs[] = {
    // compilers
    "csound",
    "winsound",
    "csoundav",
    // terminals
    "x-terminal-emulator",
    "gnome-terminal",
    "kgx",
    "konsole",
    "xfce4-terminal",
    "mate-terminal",
    "lxterminal",
    "qterminal",
    "tilix",
    "terminator",
    "kitty",
    "alacritty",
    "foot",
    "xterm",
    // calculators
    "gnome-calculator",
    "kcalc",
    "galculator",
    "mate-calc",
    "qalculate-gtk",
    "qalculate-qt",
    "speedcrunch",
    "xcalc",
    // what the desktop opens and remembers, and what it prints with
    "xdg-open",
    "gio",
    "xdg-mime",
    "update-mime-database",
    "update-desktop-database",
    "lp",
    "lpr",
    "lpstat",
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

} // namespace

Playground::Playground(Dice &dice) : m_dice(dice)
{
    addDocuments();
    addStandIns();
    addProgramFolder();
    addManual();
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

/// The word tables are the real ones.
void Playground::addProgramFolder()
{
    QDir(m_folder.path()).mkpath(QStringLiteral("program"));
    for (const char *name : {"opcode.txt", "csd.txt", "score.txt"})
        QFile::link(QStringLiteral(PROGRAM_DIR "/") + QLatin1String(name),
                    programFolder() + u'/' + QLatin1String(name));
}

void Playground::addManual()
{
    QDir(m_folder.path()).mkpath(QStringLiteral("manual"));
    write(QStringLiteral("manual/index.html"),
          "<html><body><h1>Manual</h1><a href=\"oscil.html\">oscil</a> "
          "<a href=\"missing.html\">nothing</a> <a href=\"http://nowhere/\">outside</a></body>");
    write(QStringLiteral("manual/oscil.html"),
          "<html><title>oscil</title><p><a name=\"a\">oscil</a> <a href=\"#a\">here</a>" +
              QByteArray("<p>amplitude and frequency").repeated(200));
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
    // A project's second file is named by cutting four characters, and stays in this folder too.
    const QString names[] = {QStringLiteral("new.csd"),     QStringLiteral("new.orc"),
                             QStringLiteral("sub/new.csd"), QStringLiteral("sub/x"),
                             QStringLiteral("program"),     QStringLiteral("nowhere/new.csd")};
    return m_dice.chance(60) ? path(m_dice.pick(names)) : path(m_dice.pick(m_documents));
}

QString Playground::printable()
{
    const QString names[] = {QStringLiteral("printed.pdf"), QStringLiteral("sub/printed.pdf"),
                             QStringLiteral("nowhere/printed.pdf"), QStringLiteral("sub")};
    return path(m_dice.pick(names));
}

void Playground::meddle()
{
    const QString name = path(m_dice.pick(m_documents));
    QFile file(name);
    switch (m_dice.roll(6)) {
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
    case 3: // what a run of the utility left
        write(QStringLiteral("program/pv_temp.txt"), QByteArray("Bin 1\n 0.5 0.25\n").repeated(40));
        break;
    case 4: // a list of flags that somebody else wrote
        write(QStringLiteral("program/CSFlags.dat"), QByteArray(m_dice.roll(400), '-'));
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
