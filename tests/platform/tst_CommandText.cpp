#include "platform/CommandText.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

class tst_CommandText : public QObject
{
    Q_OBJECT

private slots:
    void split_text_argumentsByQuotes_data();
    void split_text_argumentsByQuotes();
    void quoted_anyName_comesBackAsOneArgument_data();
    void quoted_anyName_comesBackAsOneArgument();
    void quoted_gluedToText_staysInThatArgument();
    void command_ofAText_hasItsArguments();
};

void tst_CommandText::split_text_argumentsByQuotes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("empty") << "" << QStringList{};
    QTest::newRow("blanks only") << "  \t " << QStringList{};
    QTest::newRow("plain") << "-W -o x" << QStringList{"-W", "-o", "x"};
    QTest::newRow("leading, many and trailing blanks") << "  -W   -d  " << QStringList{"-W", "-d"};
    QTest::newRow("tab and line ends") << "a\tb\r\nc" << QStringList{"a", "b", "c"};
    QTest::newRow("quoted") << R"("/my music/a.csd" -O/r/tmp.txt)"
                            << QStringList{"/my music/a.csd", "-O/r/tmp.txt"};
    QTest::newRow("quotes inside a word") << R"(-o"my file"x)" << QStringList{"-omy filex"};
    QTest::newRow("empty quotes") << R"(a "" b)" << QStringList{"a", "", "b"};
    QTest::newRow("doubled quote") << R"("a""b")" << QStringList{R"(a"b)"};
    QTest::newRow("only a doubled quote") << R"("""")" << QStringList{R"(")"};
    QTest::newRow("doubled at the start") << R"("""a")" << QStringList{R"("a)"};
    QTest::newRow("never closed") << R"(a "b c )" << QStringList{"a", "b c "};
    QTest::newRow("lone quote") << R"(")" << QStringList{""};
    QTest::newRow("no shell") << R"(a\ b 'c d' $HOME *;|&>x ~)"
                              << QStringList{R"(a\)", "b", "'c", "d'", "$HOME", "*;|&>x", "~"};
}

void tst_CommandText::split_text_argumentsByQuotes()
{
    QFETCH(QString, text);
    QTEST(splitCommandText(text), "arguments");
}

void tst_CommandText::quoted_anyName_comesBackAsOneArgument_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"", "plain.csd", "two words.csd", "a;b.csd", "$(rm -rf).csd", "*.csd",
                             "\"", "\"\"", "a\"b", "\"a\"", "a\"", "line\nend.csd", "tab\t.csd",
                             "back\\slash\\", "'single'", "-x.csd",
                             "pi\xc3\xa8"
                             "ce \xe9\x9f\xb3.csd",
                             " leading and trailing "})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void tst_CommandText::quoted_anyName_comesBackAsOneArgument()
{
    QFETCH(QString, name);
    QCOMPARE(splitCommandText(QStringLiteral("-o ") + quoted(name) + QStringLiteral(" -W")),
             QStringList({"-o", name, "-W"}));
}

void tst_CommandText::quoted_gluedToText_staysInThatArgument()
{
    QCOMPARE(splitCommandText(QStringLiteral("--file=") + quoted(QStringLiteral("a b"))),
             QStringList{"--file=a b"});
}

void tst_CommandText::command_ofAText_hasItsArguments()
{
    const ProgramCommand command =
        commandOf(QStringLiteral("/the tools/compiler"), QStringLiteral("-W -o \"a b.wav\" \"\""),
                  QStringLiteral("/the tools"));
    QCOMPARE(command.executable, QStringLiteral("/the tools/compiler")); // is no text to split
    QCOMPARE(command.arguments, QStringList({"-W", "-o", "a b.wav", ""}));
    QCOMPARE(command.directory, QStringLiteral("/the tools"));
    QVERIFY(command.environment.isEmpty());
}

ARDIPHON_TEST(tst_CommandText, NoApplication)
#include "tst_CommandText.moc"
