#include "data/CompilerOpcodes.h"
#include "language/WordTables.h"
#include "support/TestMain.h"

#include <QTest>

#include <algorithm>

using namespace ardiphon;

/// The table that the build made, against the rules of its form and against the compiler.
class tst_OpcodeTable : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void checker_countsArguments_data();
    void checker_countsArguments();
    void everyName_isReachedByTheLookUp();
    void everyCompilerOpcode_isInTheTable();
    void everyDescription_isOneSentenceOfItsOwn();
    void everyParametersLine_holdsItsName();
    void parameters_agreeWithTheCompilersTypes();
    void exceptions_areAllStillNeeded();
    void versionRecord_namesCompilerAndSize();
    void csdWords_beginWithTheSectionTags();
    void scoreWords_areTheStatements();

private:
    OpcodeEntry recordOf(int number);
    QStringList disagreements(const QString &name, const QList<Signature> &real);
    QStringList exceptions() const;

    WordTables m_words;
    QMap<QString, QList<Signature>> m_compiler;
};

void tst_OpcodeTable::initTestCase()
{
    m_words.LoadWordTables(QStringLiteral(PROGRAM_DIR));
    QVERIFY(m_words.OpcodeCount > 1000);
    m_compiler = compilerOpcodes();
    QVERIFY2(m_compiler.size() > 1000, "the compiler gave no list");
}

void tst_OpcodeTable::checker_countsArguments_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("outputs");
    QTest::addColumn<QString>("inputs");
    QTest::addColumn<bool>("right");
    const auto add = [](const char *name, const char *line, const char *outputs, const char *inputs,
                        bool right) {
        QTest::newRow(name) << QString::fromLatin1(line) << QString::fromLatin1(outputs)
                            << QString::fromLatin1(inputs) << right;
    };
    add("exact", "ares op xamp, xcps [, ifn, iphs]", "a", "xxjo", true);
    add("nested brackets", "ares op xamp, xcps [, ifn [, iphs]]", "a", "xxjo", true);
    add("an input too many", "ares op xamp, xcps, kx [, ifn, iphs]", "a", "xxjo", false);
    add("an optional input too few", "ares op xamp, xcps [, ifn]", "a", "xxjo", false);
    add("optional for obligatory", "ares op xamp [, xcps, ifn, iphs]", "a", "xxjo", false);
    add("obligatory for optional", "ares op xamp, xcps, ifn [, iphs]", "a", "xxjo", false);
    add("an output too many", "a1, a2 op xamp", "a", "x", false);
    add("no output", "op xamp", "a", "x", false);
    add("arrays", "kout[] op kin[][], Sname", "k[]", "k[][]S", true);
    add("list", "op a1 [, a2, ...]", "(null)", "y", true);
    add("list without its beginning", "op [a1, ...]", "(null)", "kky", false);
    add("function", "op(x) where x is i-rate", "i", "i", true);
    add("function of too many", "op(x, y)", "i", "i", false);
    add("quoted comma", "op \"a, b\", ix", "(null)", "Si", true);
}

void tst_OpcodeTable::checker_countsArguments()
{
    QFETCH(QString, line);
    QFETCH(QString, outputs);
    QFETCH(QString, inputs);
    const QList<Signature> told = signaturesIn(line, QStringLiteral("op"));
    QCOMPARE(told.size(), 1);
    const Signature real{argumentsOfTypes(outputs, true), argumentsOfTypes(inputs, false), false};
    QTEST(agrees(told.first(), {real}), "right");
}

OpcodeEntry tst_OpcodeTable::recordOf(int number)
{
    if (!m_words.ReadOpcodeRecord(number))
        return {};
    const OpcodeEntry &record = m_words.OpcodeRecord;
    return {record.Name.trimmed(), record.Description.trimmed(), record.Parameters.trimmed()};
}

void tst_OpcodeTable::everyName_isReachedByTheLookUp()
{
    for (int i = 1; i <= m_words.OpcodeCount; ++i) {
        m_words.FindOpcodeRange(m_words.OpcodeNames[i]);
        QCOMPARE(m_words.FindInRange(m_words.OpcodeNames[i]), i);
    }
}

void tst_OpcodeTable::everyCompilerOpcode_isInTheTable()
{
    QStringList lacking;
    for (auto opcode = m_compiler.cbegin(); opcode != m_compiler.cend(); ++opcode)
        if (m_words.FindInTable(opcode.key()) == 0)
            lacking.append(opcode.key());
    qInfo("%lld opcodes in the compiler's list, %lld of them in the table of %d", m_compiler.size(),
          m_compiler.size() - lacking.size(), m_words.OpcodeCount - 1);
    QVERIFY2(lacking.isEmpty(), qPrintable(lacking.join(u' ')));
}

void tst_OpcodeTable::everyDescription_isOneSentenceOfItsOwn()
{
    QMap<QString, QString> names;
    QStringList wrong;
    for (int i = 1; i <= m_words.OpcodeCount; ++i) {
        const OpcodeEntry record = recordOf(i);
        const QString &text = record.Description;
        if (names.contains(text))
            wrong.append(record.Name + QStringLiteral(" has the description of ") + names[text]);
        names.insert(text, record.Name);
        if (!text.endsWith(u'.') || text.contains(QLatin1String(". ")) || !text.front().isUpper())
            wrong.append(record.Name + QStringLiteral(": ") + text);
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
}

void tst_OpcodeTable::everyParametersLine_holdsItsName()
{
    QStringList wrong;
    for (int i = 1; i < m_words.OpcodeCount; ++i) {
        const OpcodeEntry record = recordOf(i);
        if (!record.Parameters.contains(record.Name))
            wrong.append(record.Name + QStringLiteral(": ") + record.Parameters);
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
}

QStringList tst_OpcodeTable::disagreements(const QString &name, const QList<Signature> &real)
{
    const QString line = recordOf(m_words.FindInTable(name)).Parameters;
    const QList<Signature> told = signaturesIn(line, name);
    if (told.isEmpty())
        return {name + QStringLiteral(": no call in: ") + line};
    for (const Signature &signature : told)
        if (!agrees(signature, real))
            return {name + QStringLiteral(": ") + line};
    return {};
}

QStringList tst_OpcodeTable::exceptions() const
{
    QFile file(QStringLiteral(TEST_SOURCE_DIR "/data/parameter_exceptions.txt"));
    QStringList names;
    if (!file.open(QIODevice::ReadOnly))
        return names;
    for (const QString &line : QString::fromLatin1(file.readAll()).split(u'\n', Qt::SkipEmptyParts))
        if (!line.startsWith(u';'))
            names.append(line.section(QStringLiteral(" | "), 0, 0));
    return names;
}

void tst_OpcodeTable::parameters_agreeWithTheCompilersTypes()
{
    const QStringList allowed = exceptions();
    QStringList wrong;
    for (auto opcode = m_compiler.cbegin(); opcode != m_compiler.cend(); ++opcode)
        if (!allowed.contains(opcode.key()))
            wrong += disagreements(opcode.key(), opcode.value());
    qInfo("%lld parameters lines agree with the compiler, %lld are excepted",
          m_compiler.size() - allowed.size() - wrong.size(), allowed.size());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
}

void tst_OpcodeTable::exceptions_areAllStillNeeded()
{
    QStringList useless;
    for (const QString &name : exceptions())
        if (disagreements(name, m_compiler.value(name)).isEmpty())
            useless.append(name);
    QVERIFY2(useless.isEmpty(), qPrintable(useless.join(u' ')));
}

void tst_OpcodeTable::versionRecord_namesCompilerAndSize()
{
    QCOMPARE(m_words.OpcodeHelpVersion.size(), WordTables::ParametersLength);
    QCOMPARE(m_words.OpcodeHelpVersion.trimmed(),
             QStringLiteral("Csound 6.18, %1 words").arg(m_words.OpcodeCount - 1));
    QCOMPARE(m_words.FindInTable(QStringLiteral("~version")), m_words.OpcodeCount);
}

void tst_OpcodeTable::csdWords_beginWithTheSectionTags()
{
    const QStringList tags{
        "<CsoundSynthesizer>", "</CsoundSynthesizer>", "<CsOptions>", "</CsOptions>",
        "<CsInstruments>",     "</CsInstruments>",     "<CsScore>",   "</CsScore>"};
    QCOMPARE(m_words.CsdWords.mid(1, 8), tags);
}

void tst_OpcodeTable::scoreWords_areTheStatements()
{
    const QStringList statements{"a", "b", "B", "C", "d", "e", "f", "i", "m",
                                 "n", "q", "r", "s", "t", "v", "x", "y", "z"};
    QCOMPARE(m_words.ScoreWords.mid(1), statements);
}

ARDIPHON_TEST(tst_OpcodeTable, QCoreApplication)
#include "tst_OpcodeTable.moc"
