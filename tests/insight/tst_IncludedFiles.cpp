#include "insight/IncludedFiles.h"
#include "piece/PieceLines.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace ardiphon;

/// What the files define that a piece includes.
class tst_IncludedFiles : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void piece_withoutIncludes_hasNone();
    void file_itsRowsStandBelowItsStatement();
    void file_includesAnother_fromItsOwnFolder();
    void file_ofAScore_isReadAsAScore();
    void file_itsLinesAreNotThoseOfThePiece();
    void file_namesAreKnownWithTheirFile();
    void file_includedTwice_isNamedOnce();
    void instrument_isFoundByNameAndNumber();
    void problem_missing();
    void problem_pipeAndFolder();
    void problem_tooLarge();
    void problem_noText();
    void problem_circleWithThePiece();
    void problem_circleBetweenFiles();
    void problem_tooDeep();
    void manyFiles_areBounded();
    void manyRows_areBounded();
    void change_isReadAgain();
    void change_untilItIsRead_theOldStays();
    void change_removed_isNotFound();
    void slices_readAllInTheEnd();

private:
    QString make(const QString &name, const QByteArray &text)
    {
        const QString path = m_folder->filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() ? path
                                                                                  : QString();
    }
    /// The piece with that orchestra in the folder, with all that it includes.
    IncludedFiles::Root rootOf(const Piece &piece) const
    {
        return {includesOf(piece, IncludedFiles::MostFiles),
                {m_folder->path()},
                m_folder->filePath(QStringLiteral("piece.orc"))};
    }
    void read(const Piece &piece, IncludedFiles &files) const
    {
        files.start(rootOf(piece));
        files.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
    }
    /// The rows with two blanks for each level, and "@" before the name and the line in a file.
    QStringList rows(const QByteArray &orchestra, int most = 1000) const
    {
        const PieceOfLines of(orchestra, DocumentRole::Orchestra);
        IncludedFiles files(isTestOpcode);
        read(of.piece, files);
        return rowsIn(files, of.piece, most);
    }
    static QStringList rowsIn(const IncludedFiles &files, const Piece &piece, int most = 1000)
    {
        QStringList all;
        for (const OutlineRow &row : files.withFiles(outlineOf(piece, most), most).rows) {
            QString text(row.level * 2, u' ');
            text += row.name;
            if (!row.note.isEmpty())
                text += QStringLiteral(" (%1)").arg(row.note);
            if (!row.file.isEmpty())
                text += QStringLiteral(" @%1:%2")
                            .arg(QFileInfo(row.file).fileName())
                            .arg(row.place.line);
            all.append(text);
        }
        return all;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_IncludedFiles::piece_withoutIncludes_hasNone()
{
    QCOMPARE(rows("instr 1\nendin\n"), QStringList({"Orchestra", "  instr 1"}));
    IncludedFiles files(isTestOpcode);
    QVERIFY(files.isRead());
    QVERIFY(files.names(100).isEmpty());
    QCOMPARE(files.fileOf(QStringLiteral("a.inc")), QString());
}

void tst_IncludedFiles::file_itsRowsStandBelowItsStatement()
{
    make(QStringLiteral("a.inc"), "; tools\ninstr 3, Bell ; a bell\nendin\n#define LOUD #1#\n"
                                  "opcode twice, i, i\nendop\ngiSine ftgen 1, 0, 8, 10, 1\n");
    QCOMPARE(rows("#include \"a.inc\"\ninstr 1\nendin\n"),
             QStringList({"Orchestra", "  include a.inc", "    instr 3, Bell (a bell) @a.inc:2",
                          "    #LOUD @a.inc:4", "    opcode twice (i, i) @a.inc:5",
                          "    table 1 @a.inc:7", "  instr 1"}));
}

void tst_IncludedFiles::file_includesAnother_fromItsOwnFolder()
{
    make(QStringLiteral("lib/a.inc"), "#include \"b.inc\"\n");
    make(QStringLiteral("lib/b.inc"), "instr 2\nendin\n");
    make(QStringLiteral("b.inc"), "instr 3\nendin\n");
    QCOMPARE(rows("#include \"lib/a.inc\"\n#include \"b.inc\"\n"),
             QStringList({"Orchestra", "  include lib/a.inc", "    include b.inc @a.inc:1",
                          "      instr 2 @b.inc:1", "  include b.inc", "    instr 3 @b.inc:1"}));
}

void tst_IncludedFiles::file_ofAScore_isReadAsAScore()
{
    make(QStringLiteral("a.sco"), "f7 0 8 10 1 ; sine\ni1 0 1\ns\n");
    const PieceOfLines of("#include \"a.sco\"\n", DocumentRole::Score);
    IncludedFiles files(isTestOpcode);
    read(of.piece, files);
    QCOMPARE(rowsIn(files, of.piece),
             QStringList({"Score", "  include a.sco", "    table 7 (sine) @a.sco:1",
                          "    section 2 @a.sco:3"}));
}

void tst_IncludedFiles::file_itsLinesAreNotThoseOfThePiece()
{
    make(QStringLiteral("a.inc"), "instr 7\nendin\n\n\ninstr 8\nendin\n");
    const PieceOfLines of("\n#include \"a.inc\"\n\ninstr 1\nendin\n", DocumentRole::Orchestra);
    IncludedFiles files(isTestOpcode);
    read(of.piece, files);
    const Outline outline = files.withFiles(outlineOf(of.piece, 100), 100);
    const QList<int> expected = {0, 1, 1, 4, 4, 4}; // the row of each line
    for (int line = 1; line <= expected.size(); ++line)
        QCOMPARE(outlineRowAt(outline, DocumentRole::Orchestra, line), expected[line - 1]);
}

void tst_IncludedFiles::file_namesAreKnownWithTheirFile()
{
    const QString path =
        make(QStringLiteral("a.inc"), "gkLevel init 1\n\ninstr Bell\nkamp = p4\nendin\n");
    const PieceOfLines of("#include \"a.inc\"\n", DocumentRole::Orchestra);
    IncludedFiles files(isTestOpcode);
    read(of.piece, files);
    const QList<PieceName> names = files.names(100);
    QCOMPARE(names.size(), 3);
    QCOMPARE(names[1].name, QStringLiteral("Bell"));
    QCOMPARE(names[1].place.line, 3);
    QCOMPARE(names[1].file, path);
    QCOMPARE(names[2].scope, QStringLiteral("instr Bell"));
    QCOMPARE(files.names(2).size(), 2);
    QCOMPARE(files.fileOf(QStringLiteral("a.inc")), path);
}

void tst_IncludedFiles::file_includedTwice_isNamedOnce()
{
    make(QStringLiteral("a.inc"), "#include \"b.inc\"\n");
    make(QStringLiteral("b.inc"), "instr 2\nendin\n");
    const PieceOfLines of("#include \"a.inc\"\n#include \"b.inc\"\n", DocumentRole::Orchestra);
    IncludedFiles files(isTestOpcode);
    read(of.piece, files);
    QStringList names;
    for (const PieceName &name : files.names(100))
        names.append(name.name);
    QCOMPARE(names, QStringList({"b.inc", "2"}));
    QCOMPARE(rowsIn(files, of.piece).size(), 6);
}

void tst_IncludedFiles::instrument_isFoundByNameAndNumber()
{
    make(QStringLiteral("a.inc"), "instr 3, Bell\nendin\n");
    const PieceOfLines of("#include \"a.inc\"\n", DocumentRole::Orchestra);
    IncludedFiles files(isTestOpcode);
    read(of.piece, files);
    QCOMPARE(files.instrumentNamed("Bell")->place.line, 1);
    QCOMPARE(files.instrumentNamed("3")->name, QStringLiteral("3"));
    QVERIFY(!files.instrumentNamed("4"));
    QVERIFY(!files.instrumentNamed(""));
}

void tst_IncludedFiles::problem_missing()
{
    QCOMPARE(rows("#include \"a.inc\"\n"),
             QStringList({"Orchestra", "  include a.inc (not found)"}));
}

void tst_IncludedFiles::problem_pipeAndFolder()
{
    QCOMPARE(
        ::mkfifo(QFile::encodeName(m_folder->filePath(QStringLiteral("pipe"))).constData(), 0600),
        0);
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    QCOMPARE(rows("#include \"pipe\"\n#include \"folder\"\n#include \"/dev/zero\"\n"),
             QStringList({"Orchestra", "  include pipe (cannot be read)",
                          "  include folder (not found)", "  include /dev/zero (cannot be read)"}));
}

void tst_IncludedFiles::problem_tooLarge()
{
    make(QStringLiteral("a.inc"), "instr 1\n");
    const QString path = m_folder->filePath(QStringLiteral("a.inc"));
    QVERIFY(QFile::resize(path, qint64(100) << 20));
    QCOMPARE(rows("#include \"a.inc\"\n"),
             QStringList({"Orchestra", "  include a.inc (too large to look into)"}));
    const QByteArray line("a = 1 ;\n");
    make(QStringLiteral("a.inc"), line.repeated(int(IncludedFiles::LargestFile / line.size())));
    QCOMPARE(rows("#include \"a.inc\"\n"), QStringList({"Orchestra", "  include a.inc"}));
    QVERIFY(QFile::resize(path, IncludedFiles::LargestFile + 1));
    QCOMPARE(rows("#include \"a.inc\"\n").last(),
             QStringLiteral("  include a.inc (too large to look into)"));
}

void tst_IncludedFiles::problem_noText()
{
    make(QStringLiteral("a.inc"), QByteArray("RIFF\0\0\0instr 1\nendin", 20));
    QCOMPARE(rows("#include \"a.inc\"\n"), QStringList({"Orchestra", "  include a.inc (no text)"}));
}

void tst_IncludedFiles::problem_circleWithThePiece()
{
    make(QStringLiteral("piece.orc"), "#include \"a.inc\"\n");
    make(QStringLiteral("a.inc"), "#include \"piece.orc\"\ninstr 1\nendin\n");
    QCOMPARE(
        rows("#include \"piece.orc\"\n#include \"a.inc\"\n"),
        QStringList({"Orchestra", "  include piece.orc (includes itself)", "  include a.inc",
                     "    include piece.orc (includes itself) @a.inc:1", "    instr 1 @a.inc:2"}));
}

void tst_IncludedFiles::problem_circleBetweenFiles()
{
    make(QStringLiteral("a.inc"), "#include \"b.inc\"\n#include \"a.inc\"\n");
    make(QStringLiteral("b.inc"), "#include \"a.inc\"\ninstr 1\nendin\n");
    QCOMPARE(
        rows("#include \"a.inc\"\n"),
        QStringList({"Orchestra", "  include a.inc", "    include b.inc @a.inc:1",
                     "      include a.inc (includes itself) @b.inc:1", "      instr 1 @b.inc:2",
                     "    include a.inc (includes itself) @a.inc:2"}));
}

void tst_IncludedFiles::problem_tooDeep()
{
    for (int i = 0; i < 8; ++i)
        make(QString::number(i), QStringLiteral("#include \"%1\"\n").arg(i + 1).toLatin1());
    const QStringList all = rows("#include \"0\"\n");
    QCOMPARE(all.size(), 7);
    QCOMPARE(all.last(), QStringLiteral("            include 5 (too many in each other) @4:1"));
}

void tst_IncludedFiles::manyFiles_areBounded()
{
    QByteArray text;
    for (int i = 0; i < 200; ++i)
        text += "#include \"" + QByteArray::number(i) + "\"\n";
    make(QStringLiteral("0"), text);
    make(QStringLiteral("1"), text);
    const PieceOfLines of(text, DocumentRole::Orchestra);
    IncludedFiles files(isTestOpcode);
    read(of.piece, files);
    const QStringList all = rowsIn(files, of.piece);
    QCOMPARE(all.filter(QStringLiteral("(not found)")).size(), IncludedFiles::MostFiles - 2);
}

void tst_IncludedFiles::manyRows_areBounded()
{
    make(QStringLiteral("a.inc"), QByteArray("instr 1\nendin\n").repeated(1000));
    const PieceOfLines of("#include \"a.inc\"\n", DocumentRole::Orchestra);
    IncludedFiles files(isTestOpcode);
    read(of.piece, files);
    const Outline outline = files.withFiles(outlineOf(of.piece, 100), 100);
    QCOMPARE(outline.rows.size(), 100);
    QVERIFY(!outline.isWhole);
    QVERIFY(files.withFiles(outlineOf(of.piece, 2000), 2000).isWhole);
}

void tst_IncludedFiles::change_isReadAgain()
{
    make(QStringLiteral("a.inc"), "instr 1\nendin\n");
    const PieceOfLines of("#include \"a.inc\"\n", DocumentRole::Orchestra);
    IncludedFiles files(isTestOpcode);
    read(of.piece, files);
    make(QStringLiteral("a.inc"), "instr 23\nendin\n");
    QCOMPARE(rowsIn(files, of.piece).last(), QStringLiteral("    instr 1 @a.inc:1"));
    read(of.piece, files);
    QCOMPARE(rowsIn(files, of.piece).last(), QStringLiteral("    instr 23 @a.inc:1"));
}

void tst_IncludedFiles::change_untilItIsRead_theOldStays()
{
    make(QStringLiteral("a.inc"), "instr 1\nendin\n");
    const PieceOfLines of("#include \"a.inc\"\n", DocumentRole::Orchestra);
    IncludedFiles files(isTestOpcode);
    read(of.piece, files);
    make(QStringLiteral("a.inc"), "instr 23\nendin\n");
    files.start(rootOf(of.piece));
    QVERIFY(!files.isRead());
    QCOMPARE(rowsIn(files, of.piece).last(), QStringLiteral("    instr 1 @a.inc:1"));
    QCOMPARE(files.names(9).size(), 1);
    while (!files.readOn(QDeadlineTimer(0))) {
    }
    QCOMPARE(rowsIn(files, of.piece).last(), QStringLiteral("    instr 23 @a.inc:1"));
}

void tst_IncludedFiles::change_removed_isNotFound()
{
    const QString path = make(QStringLiteral("a.inc"), "instr 1\nendin\n");
    const PieceOfLines of("#include \"a.inc\"\n", DocumentRole::Orchestra);
    IncludedFiles files(isTestOpcode);
    read(of.piece, files);
    QVERIFY(QFile::remove(path));
    read(of.piece, files);
    QCOMPARE(rowsIn(files, of.piece).last(), QStringLiteral("  include a.inc (not found)"));
    QVERIFY(files.names(9).isEmpty());
}

void tst_IncludedFiles::slices_readAllInTheEnd()
{
    make(QStringLiteral("a.inc"), QByteArray("instr 1\na = 1\nendin\n").repeated(20000));
    make(QStringLiteral("b.inc"), QByteArray("instr 2\nendin\n"));
    const PieceOfLines of("#include \"a.inc\"\n#include \"b.inc\"\n", DocumentRole::Orchestra);
    IncludedFiles files(isTestOpcode);
    files.start(rootOf(of.piece));
    int slices = 1;
    while (!files.readOn(QDeadlineTimer(0)))
        ++slices;
    QVERIFY(slices > 10);
    QCOMPARE(files.instrumentNamed("2")->place.line, 1);
}

ARDIPHON_TEST(tst_IncludedFiles, QCoreApplication)
#include "tst_IncludedFiles.moc"
