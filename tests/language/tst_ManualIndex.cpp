#include "language/ManualIndex.h"
#include "language/ManualText.h"
#include "language/WordTables.h"
#include "support/FileBytes.h"
#include "support/TestMain.h"
#include "support/TimeLimit.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace ardiphon;

/// Keywords against the installed manual and against small ones made here.
class tst_ManualIndex : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void keyword_arrivesAtItsPage_data();
    void keyword_arrivesAtItsPage();
    void tags_arriveAtTheirHeadings();
    void everyTag_hasAPage();
    void everyOpcodeWithAPage_resolves();
    void resolvedPage_speaksOfTheOpcode();
    void keyword_neverLeavesTheFolder_data();
    void keyword_neverLeavesTheFolder();
    void linkOutOfTheFolder_isNoPage();
    void nothingIsReadBeforeTheFirstKeyword();
    void whatWasRead_isRemembered();
    void badStartPage_hasNoKeywords_data();
    void badStartPage_hasNoKeywords();
    void hugePage_isReadInPart();
    void names_areReadOutOfMarkup();

private:
    QByteArray page(const QString &file) const;
    void write(const QString &name, const QByteArray &bytes) const;

    const QString m_manual = QStringLiteral("/usr/share/doc/csound-doc/html");
    ManualIndex m_installed{m_manual + QStringLiteral("/index.html")};
    WordTables m_words;
    QTemporaryDir m_folder;
};

void tst_ManualIndex::initTestCase()
{
    m_words.LoadWordTables(QStringLiteral(PROGRAM_DIR));
    QVERIFY2(QFile::exists(m_manual + QStringLiteral("/index.html")),
             "the manual is not installed");
}

QByteArray tst_ManualIndex::page(const QString &file) const
{
    return readManualPage(m_manual + u'/' + file);
}

void tst_ManualIndex::write(const QString &name, const QByteArray &bytes) const
{
    const QString path = m_folder.filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    writeBytes(path, bytes);
}

void tst_ManualIndex::keyword_arrivesAtItsPage_data()
{
    QTest::addColumn<QString>("keyword");
    QTest::addColumn<QString>("file");
    const auto add = [](const char *keyword, const char *file) {
        QTest::newRow(*keyword ? keyword : "empty")
            << QString::fromLatin1(keyword) << QString::fromLatin1(file);
    };
    add("oscil", "oscil.html");
    add("instr", "instr.html");
    add("Gen Routines", "ScoreGenRef.html");
    add("csound, command line flags", "CommandFlags.html");
    add("directCsound, command-line flags", "CommandFlags.html");
    add("csoundav", "OviewFrontEnds.html");
    add("a (score statement)", "a.html");
    add("b (score statement)", "b.html");
    add("B (score statement)", "capB.html");
    add("C (score statement)", "C.html");
    add("i (score statement)", "i.html");
    add("z (score statement)", "ScoreStatements.html");
    // The opcodes of the same names have pages of their own.
    add("i", "opi.html");
    add("a", "opa.html");
    // One page for several.
    add("chn_k", "chn.html");
    add("chn_S", "chn.html");
    add("tb15_init", "tb.html");
    add("crossfmpmi", "crossfm.html");
    add("la_i_add_mr", "linearalgebraopcodes.html");
    add("la_i_add_mc", "linearalgebraopcodes.html");
    add("pylcall7t", "py.html");
    add("$M_PI", "OrchMacros.html");
    add("#else", "ifdef.html");
    add("#endif", "ifdef.html");
    add("then", "if.html");
    add("trigLinseg", "triglinseg.html");
    add("K35_hpf", "k35_hpf.html");
    add("product", "product.html");
    // None.
    add("", "");
    add("nothing of the kind", "");
    add("vstinit", "");
}

void tst_ManualIndex::keyword_arrivesAtItsPage()
{
    QFETCH(QString, keyword);
    const std::optional<QUrl> found = m_installed.find(keyword);
    QTEST(found ? found->fileName() : QString(), "file");
    if (found)
        QCOMPARE(QFileInfo(found->toLocalFile()).path(), m_manual);
}

void tst_ManualIndex::tags_arriveAtTheirHeadings()
{
    const QByteArray chapter = page(QStringLiteral("CommandUnifile.html"));
    for (const char *tag :
         {"CsOptions", "CsInstruments", "CsScore", "CsFileB", "CsLicence", "html"}) {
        for (const char *form : {"<%1>", "</%1>"}) {
            const auto found = m_installed.find(QString::fromLatin1(form).arg(QLatin1String(tag)));
            QVERIFY2(found, tag);
            QCOMPARE(found->fileName(), QStringLiteral("CommandUnifile.html"));
            const qsizetype anchor = chapter.indexOf("id=\"" + found->fragment().toLatin1() + '"');
            QVERIFY2(anchor > 0 && !found->fragment().isEmpty(), tag);
            const QByteArray heading =
                chapter.mid(anchor, chapter.indexOf("</h4>", anchor) - anchor);
            QVERIFY2(heading.contains(QByteArray("&lt;") + tag + "&gt;"), heading.constData());
        }
    }
    const auto whole = m_installed.find(QStringLiteral("<CsoundSynthesizer>"));
    QVERIFY(whole);
    QCOMPARE(whole->fileName(), QStringLiteral("CommandUnifile.html"));
}

void tst_ManualIndex::everyTag_hasAPage()
{
    for (const QString &tag : m_words.CsdWords.mid(1))
        QVERIFY2(m_installed.find(tag), qPrintable(tag));
    for (const QString &statement : m_words.ScoreWords.mid(1))
        QVERIFY2(m_installed.find(statement + QStringLiteral(" (score statement)")),
                 qPrintable(statement));
}

void tst_ManualIndex::everyOpcodeWithAPage_resolves()
{
    // What has a page: it is named so, the quick reference links it, or a page shows its syntax.
    QSet<QString> explained;
    const QStringList files = QDir(m_manual).entryList({QStringLiteral("*.html")});
    static const QRegularExpression command(QStringLiteral("<pre class=\"synopsis\">(.*?)</pre>"),
                                            QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression name(QStringLiteral("<(?:strong|a [^>]*)>([^<]*)</"));
    for (const QString &file : files) {
        explained.insert(file.chopped(5));
        const QString text = QString::fromUtf8(page(file));
        for (auto pre = command.globalMatch(text); pre.hasNext();)
            for (auto word = name.globalMatch(pre.next().captured(1)); word.hasNext();)
                explained.insert(word.next().captured(1).trimmed());
    }
    QStringList lacking;
    QStringList missed;
    for (const QString &opcode : m_words.OpcodeNames.mid(1, m_words.OpcodeCount - 1)) {
        if (m_installed.find(opcode))
            continue;
        lacking.append(opcode);
        if (explained.contains(opcode))
            missed.append(opcode);
    }
    const int opcodes = m_words.OpcodeCount - 1;
    const double share = 100.0 * double(opcodes - lacking.size()) / opcodes;
    qInfo("%lld of %d keywords resolve, %.1f %%; the manual has no page for: %s",
          opcodes - lacking.size(), opcodes, share, qPrintable(lacking.join(u' ')));
    QVERIFY2(missed.isEmpty(), qPrintable(missed.join(u' ')));
    QVERIFY(share >= 96);
}

void tst_ManualIndex::resolvedPage_speaksOfTheOpcode()
{
    QHash<QString, QString> texts;
    QStringList elsewhere;
    for (const QString &opcode : m_words.OpcodeNames.mid(1, m_words.OpcodeCount - 1)) {
        const auto found = m_installed.find(opcode);
        if (!found)
            continue;
        QString &text = texts[found->fileName()];
        if (text.isEmpty())
            text = plainManualText(page(found->fileName()));
        if (!text.contains(opcode, Qt::CaseInsensitive))
            elsewhere.append(opcode);
    }
    // Spellings and families that the manual explains without naming each one.
    static const QRegularExpression known(QStringLiteral(
        "^(py|la_[ik]_|(#endif|c[in]n?kgoto|cingoto|enduntil|ithen|kthen|slicearray_i)$)"));
    elsewhere.removeIf([](const QString &name) { return known.match(name).hasMatch(); });
    QVERIFY2(elsewhere.isEmpty(), qPrintable(elsewhere.join(u' ')));
}

void tst_ManualIndex::keyword_neverLeavesTheFolder_data()
{
    QTest::addColumn<QString>("keyword");
    for (const char *keyword : {"../outside", "..", ".", "/etc/passwd", "sub/inside", "./here",
                                "here.html#x/../../outside", "<../outside>", "</etc/passwd>",
                                "<script>alert(1)</script>", "../outside (score statement)",
                                " (score statement)", "here\n", "%2e%2e/outside", "\\\\host\\here"})
        QTest::newRow(keyword) << QString::fromLatin1(keyword);
}

void tst_ManualIndex::keyword_neverLeavesTheFolder()
{
    QFETCH(QString, keyword);
    write(QStringLiteral("outside.html"), "out");
    write(QStringLiteral("manual/here.html"), "here");
    write(QStringLiteral("manual/sub/inside.html"), "in");
    write(QStringLiteral("manual/index.html"), "<a href=\"here.html\">here</a>");
    ManualIndex index(m_folder.filePath(QStringLiteral("manual/index.html")));
    QVERIFY(index.find(QStringLiteral("here")));
    QCOMPARE(index.find(keyword), std::nullopt);
}

void tst_ManualIndex::linkOutOfTheFolder_isNoPage()
{
    write(QStringLiteral("outside.html"), "out");
    write(QStringLiteral("links/index.html"),
          "<a href=\"../outside.html\">up</a> <a href=\"/etc/passwd\">root</a>"
          "<a href=\"http://localhost/\">web</a> <a href=\"gone.html\">gone</a>"
          "<a href=\"sub/../../outside.html\">round</a> <a href=\"\">none</a> <a "
          "name=\"x\">anchor</a>"
          "<a href=\"index.html#part\">part</a>");
    ManualIndex index(m_folder.filePath(QStringLiteral("links/index.html")));
    for (const char *title : {"up", "root", "web", "gone", "round", "none", "anchor"})
        QVERIFY2(!index.find(QLatin1String(title)), title);
    const auto part = index.find(QStringLiteral("part"));
    QVERIFY(part);
    QCOMPARE(part->fileName() + u'#' + part->fragment(), QStringLiteral("index.html#part"));
}

void tst_ManualIndex::nothingIsReadBeforeTheFirstKeyword()
{
    ManualIndex index(m_folder.filePath(QStringLiteral("late/index.html")));
    // Only now is there anything to read.
    write(QStringLiteral("late/one.html"), "one");
    write(QStringLiteral("late/index.html"), "<a href=\"one.html\">first</a>");
    QVERIFY(index.find(QStringLiteral("first")));
}

void tst_ManualIndex::whatWasRead_isRemembered()
{
    write(QStringLiteral("once/both.html"),
          "<pre class=\"synopsis\">a <strong>left</strong></pre>"
          "<pre class=\"synopsis\">a <strong>right</strong></pre>");
    write(QStringLiteral("once/index.html"), "<a href=\"both.html\">both</a>");
    ManualIndex index(m_folder.filePath(QStringLiteral("once/index.html")));
    QVERIFY(index.find(QStringLiteral("left")));
    QVERIFY(QDir(m_folder.filePath(QStringLiteral("once"))).removeRecursively());
    QVERIFY(index.find(QStringLiteral("right")));
    QVERIFY(index.find(QStringLiteral("both")));
}

void tst_ManualIndex::badStartPage_hasNoKeywords_data()
{
    QTest::addColumn<QString>("path");
    write(QStringLiteral("bad/oscil.html"), "a page");
    write(QStringLiteral("bad/help.chm"), "<a href=\"oscil.html\">oscil</a>");
    write(QStringLiteral("bad/empty.html"), "");
    QByteArray noise(100000, '\0');
    for (qsizetype i = 0; i < noise.size(); ++i)
        noise[i] = char((i * 7919) >> 3);
    write(QStringLiteral("bad/sub/noise.html"),
          noise + "<a href=\"" + noise + "<pre class=\"synopsis\">");
    QTest::newRow("none") << QString();
    QTest::newRow("missing") << m_folder.filePath(QStringLiteral("bad/gone.html"));
    QTest::newRow("folder") << m_folder.filePath(QStringLiteral("bad"));
    QTest::newRow("another kind") << m_folder.filePath(QStringLiteral("bad/help.chm"));
    QTest::newRow("empty") << m_folder.filePath(QStringLiteral("bad/empty.html"));
    QTest::newRow("random bytes") << m_folder.filePath(QStringLiteral("bad/sub/noise.html"));
}

void tst_ManualIndex::badStartPage_hasNoKeywords()
{
    QFETCH(QString, path);
    ManualIndex index(path);
    for (const char *keyword : {"oscil", "Gen Routines", "<CsScore>", "a (score statement)", ""})
        QCOMPARE(index.find(QLatin1String(keyword)), std::nullopt);
}

void tst_ManualIndex::hugePage_isReadInPart()
{
    write(QStringLiteral("huge/index.html"),
          QByteArray(1000, ' ') + "<a href=\"index.html\">late</a>");
    QCOMPARE(readManualPage(m_folder.filePath(QStringLiteral("huge/index.html")), 100).size(), 100);
    // A file of 1 TiB with nothing in it, which cannot be read whole.
    write(QStringLiteral("huge/start.html"), "<a href=\"start.html\">early</a>");
    QFile file(m_folder.filePath(QStringLiteral("huge/start.html")));
    if (!file.open(QIODevice::ReadWrite) || !file.resize(qint64(1) << 40))
        QSKIP("this file system has no room for a file full of holes");
    const TimeLimit limit;
    ManualIndex index(m_folder.filePath(QStringLiteral("huge/start.html")));
    QVERIFY(index.find(QStringLiteral("early")));
    QVERIFY(!index.find(QStringLiteral("anything else")));
}

void tst_ManualIndex::names_areReadOutOfMarkup()
{
    QCOMPARE(plainManualText("<b>a &lt;x&gt; &amp;lt;</b>\n  <i>b</i> &quot;c&quot;"),
             QStringLiteral("a <x> &lt; b \"c\""));
    QCOMPARE(
        manualSynopses("<pre class=\"synopsis\"><strong>one</strong> <strong> two </strong></pre>"
                       "<strong>three</strong><pre class=\"synopsis\"><strong>cut"),
        (QStringList{QStringLiteral("one"), QStringLiteral("two")}));
    const QList<ManualLink> links = manualLinks(
        "<a class=\"x\" href=\"p.html\"> A\n <b>title</b></a><a id=\"y\">no</a><a href=\"");
    QCOMPARE(links.size(), 1);
    QCOMPARE(links[0].title, QStringLiteral("A title"));
    QCOMPARE(links[0].target, QStringLiteral("p.html"));
}

ARDIPHON_TEST(tst_ManualIndex, QCoreApplication)
#include "tst_ManualIndex.moc"
