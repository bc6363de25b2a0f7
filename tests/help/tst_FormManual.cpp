#include "help/ui/FormManual.h"
#include "support/Fifo.h"
#include "support/FileBytes.h"
#include "support/RandomSeed.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>

using namespace ardiphon;

/// The help window over a manual of three pages.
class tst_FormManual : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void page_isShownWithItsTitle();
    void anchor_isScrolledTo();
    void link_isFollowed();
    void backAndForward_goThroughThePages();
    void startPage_isOneClickAway();
    void keys_doWhatTheButtonsDo();
    void find_goesThroughTheMatches();
    void find_withoutMatch_saysSo();
    void textSize_staysWithinBounds();
    void browserButton_opensThePageOutside();
    void linkOutOfTheManual_opensOutside();
    void example_isShownAsText();
    void image_isLoaded();
    void image_thatIsNoFile_isNotWaitedFor();
    void pageOutOfMeasure_isShownAsFarAsItFits_data();
    void pageOutOfMeasure_isShownAsFarAsItFits();
    void picture_outOfMeasure_isLeftOut();
    void pageThatIsNone_saysSo_data();
    void pageThatIsNone_saysSo();
    void randomBytes_areShownSomehow();
    void esc_closes();
    void nothing_isRemembered();
    void viewer_usesOneWindow();
    void installedManual_isReadable_data();
    void installedManual_isReadable();

private:
    void write(const char *name, const QByteArray &bytes);
    QUrl url(const QString &name) const
    {
        QUrl page = QUrl::fromLocalFile(m_folder.filePath(name.section(u'#', 0, 0)));
        page.setFragment(name.section(u'#', 1));
        return page;
    }
    void open(const QString &name)
    {
        m_form->showPage(url(name), m_folder.filePath(QStringLiteral("index.html")));
    }
    QString shown() const { return m_browser->source().fileName(); }
    void click(const char *button)
    {
        QTest::mouseClick(m_form->findChild<QToolButton *>(QLatin1String(button)), Qt::LeftButton);
    }
    bool enabled(const char *button) const
    {
        return m_form->findChild<QToolButton *>(QLatin1String(button))->isEnabled();
    }
    /// Clicks on the first place where the page has that text.
    void clickOn(const QString &text);

    QTemporaryDir m_folder;
    QList<QUrl> m_outside;
    QPointer<FormManual> m_form;
    QTextBrowser *m_browser = nullptr;
};

void tst_FormManual::init()
{
    write("index.html",
          "<title>The Manual</title><h1>Contents</h1><p><a href=\"one.html\">first page</a>"
          "<p><a href=\"two.html#end\">second page</a><p><a href=\"http://localhost/x\">web"
          "</a><p><a href=\"example.csd\">example</a><p><a href=\"sound.wav\">sound</a>");
    write("one.html", "<title>One</title><p>apple pear apple<p>Apple plum");
    write("two.html", "<title>Two</title><p>top" + QByteArray("<p>line").repeated(300) +
                          "<h2><a id=\"end\"></a>end</h2>" + QByteArray("<p>line").repeated(300));
    write("example.csd", "<CsoundSynthesizer>\n<CsScore>\ni 1 0 1 ; a & b\n");
    write("sound.wav", "RIFF");
    m_outside.clear();
    m_form = new FormManual([this](const QUrl &page) { m_outside.append(page); }, nullptr);
    m_browser = m_form->findChild<QTextBrowser *>(QStringLiteral("TextManual"));
}

void tst_FormManual::cleanup() { delete m_form; }

void tst_FormManual::write(const char *name, const QByteArray &bytes)
{
    writeBytes(m_folder.filePath(QLatin1String(name)), bytes);
}

void tst_FormManual::clickOn(const QString &text)
{
    QTextCursor place = m_browser->document()->find(text);
    require(!place.isNull(), qPrintable(text));
    place.setPosition(place.selectionStart() + 1);
    QTest::mouseClick(m_browser->viewport(), Qt::LeftButton, {},
                      m_browser->cursorRect(place).center());
}

void tst_FormManual::page_isShownWithItsTitle()
{
    open(QStringLiteral("one.html"));
    QVERIFY(m_form->isVisible());
    QVERIFY(!m_form->isModal());
    QCOMPARE(m_form->objectName(), QStringLiteral("FormManual"));
    QCOMPARE(m_form->windowTitle(), QStringLiteral("One - Csound Help"));
    QVERIFY(m_browser->toPlainText().contains(QStringLiteral("apple pear apple")));
}

void tst_FormManual::anchor_isScrolledTo()
{
    open(QStringLiteral("two.html"));
    QCOMPARE(m_browser->verticalScrollBar()->value(), 0);
    open(QStringLiteral("two.html#end"));
    QTRY_VERIFY(m_browser->verticalScrollBar()->value() > 1000);
}

void tst_FormManual::link_isFollowed()
{
    open(QStringLiteral("index.html"));
    clickOn(QStringLiteral("second page"));
    QCOMPARE(shown(), QStringLiteral("two.html"));
    QCOMPARE(m_form->windowTitle(), QStringLiteral("Two - Csound Help"));
    QTRY_VERIFY(m_browser->verticalScrollBar()->value() > 1000);
}

void tst_FormManual::backAndForward_goThroughThePages()
{
    open(QStringLiteral("index.html"));
    QVERIFY(!enabled("buttonBack") && !enabled("buttonForward"));
    clickOn(QStringLiteral("first page"));
    open(QStringLiteral("two.html"));
    click("buttonBack");
    QCOMPARE(shown(), QStringLiteral("one.html"));
    click("buttonBack");
    QCOMPARE(shown(), QStringLiteral("index.html"));
    QVERIFY(!enabled("buttonBack") && enabled("buttonForward"));
    click("buttonForward");
    QCOMPARE(shown(), QStringLiteral("one.html"));
}

void tst_FormManual::startPage_isOneClickAway()
{
    open(QStringLiteral("one.html"));
    click("buttonStart");
    QCOMPARE(shown(), QStringLiteral("index.html"));
}

void tst_FormManual::keys_doWhatTheButtonsDo()
{
    open(QStringLiteral("one.html"));
    QVERIFY(QTest::qWaitForWindowActive(m_form));
    QTest::keyClick(m_browser, Qt::Key_Home, Qt::AltModifier);
    QCOMPARE(shown(), QStringLiteral("index.html"));
    QTest::keyClick(m_browser, Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(shown(), QStringLiteral("one.html"));
    QTest::keyClick(m_browser, Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(shown(), QStringLiteral("index.html"));
    auto *const TextFind = m_form->findChild<QLineEdit *>(QStringLiteral("TextFind"));
    QTest::keyClick(m_browser, Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(m_form->focusWidget(), TextFind);
    QTest::keyClicks(TextFind, QStringLiteral("page"));
    QTest::keyClick(TextFind, Qt::Key_F3);
    QCOMPARE(m_browser->textCursor().selectedText(), QStringLiteral("page"));
    const int first = m_browser->textCursor().position();
    QTest::keyClick(TextFind, Qt::Key_F3);
    QVERIFY(m_browser->textCursor().position() > first);
    QTest::keyClick(TextFind, Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(m_browser->textCursor().position(), first);
}

void tst_FormManual::find_goesThroughTheMatches()
{
    open(QStringLiteral("one.html"));
    auto *const TextFind = m_form->findChild<QLineEdit *>(QStringLiteral("TextFind"));
    click("buttonFindNext"); // nothing to find
    QVERIFY(!m_browser->textCursor().hasSelection());
    QTest::keyClicks(TextFind, QStringLiteral("apple"));
    QList<int> places;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(TextFind, Qt::Key_Return);
        places.append(m_browser->textCursor().selectionStart());
    }
    QCOMPARE(places, (QList<int>{0, 11, 17, 0})); // case does not count; from the end to the start
    click("buttonFindPrevious");
    QCOMPARE(m_browser->textCursor().selectionStart(), 17);
    click("buttonFindNext");
    QCOMPARE(m_browser->textCursor().selectionStart(), 0);
}

void tst_FormManual::find_withoutMatch_saysSo()
{
    open(QStringLiteral("one.html"));
    auto *const TextFind = m_form->findChild<QLineEdit *>(QStringLiteral("TextFind"));
    auto *const LabelFind = m_form->findChild<QLabel *>(QStringLiteral("LabelFind"));
    QTest::keyClicks(TextFind, QStringLiteral("plum"));
    QTest::keyClick(TextFind, Qt::Key_Return);
    const int place = m_browser->textCursor().selectionStart();
    QTest::keyClicks(TextFind, QStringLiteral("x"));
    QTest::keyClick(TextFind, Qt::Key_Return);
    QCOMPARE(LabelFind->text(), QStringLiteral("Not found"));
    QCOMPARE(m_browser->textCursor().selectionStart(), place);
    QTest::keyClick(TextFind, Qt::Key_Backspace);
    QCOMPARE(LabelFind->text(), QString());
}

void tst_FormManual::textSize_staysWithinBounds()
{
    open(QStringLiteral("one.html"));
    QVERIFY(QTest::qWaitForWindowActive(m_form));
    const double usual = m_browser->font().pointSizeF();
    click("buttonLarger");
    QCOMPARE(m_browser->font().pointSizeF(), usual + 1);
    QTest::keyClick(m_browser, Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(m_browser->font().pointSizeF(), usual);
    for (int i = 0; i < 50; ++i)
        click("buttonLarger");
    QCOMPARE(m_browser->font().pointSizeF(), usual + 12);
    for (int i = 0; i < 50; ++i)
        click("buttonSmaller");
    QCOMPARE(m_browser->font().pointSizeF(), usual - 4);
}

void tst_FormManual::browserButton_opensThePageOutside()
{
    open(QStringLiteral("two.html#end"));
    click("buttonBrowser");
    QCOMPARE(m_outside, QList<QUrl>{url(QStringLiteral("two.html#end"))});
    QCOMPARE(shown(), QStringLiteral("two.html"));
}

void tst_FormManual::linkOutOfTheManual_opensOutside()
{
    open(QStringLiteral("index.html"));
    clickOn(QStringLiteral("web"));
    clickOn(QStringLiteral("sound"));
    QCOMPARE(m_outside, (QList<QUrl>{QUrl(QStringLiteral("http://localhost/x")),
                                     url(QStringLiteral("sound.wav"))}));
    QCOMPARE(shown(), QStringLiteral("index.html"));
}

void tst_FormManual::example_isShownAsText()
{
    open(QStringLiteral("index.html"));
    clickOn(QStringLiteral("example"));
    QVERIFY(m_browser->toPlainText().contains(QStringLiteral("<CsScore>\ni 1 0 1 ; a & b")));
    click("buttonBack");
    QCOMPARE(shown(), QStringLiteral("index.html"));
}

void tst_FormManual::image_isLoaded()
{
    QImage image(20, 10, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(m_folder.filePath(QStringLiteral("red.png"))));
    write("picture.html", "<img src=\"red.png\">");
    open(QStringLiteral("picture.html"));
    m_browser->grab(); // a picture is asked for when it is drawn
    const QVariant loaded = m_browser->document()->resource(QTextDocument::ImageResource,
                                                            QUrl(QStringLiteral("red.png")));
    QVERIFY(loaded.isValid());
}

void tst_FormManual::image_thatIsNoFile_isNotWaitedFor()
{
    Fifo fifo(m_folder.filePath(QStringLiteral("fifo.png")));
    QVERIFY(
        QFile::link(QStringLiteral("/dev/zero"), m_folder.filePath(QStringLiteral("zero.png"))));
    const QByteArray absolute = QFile::encodeName(m_folder.filePath(QStringLiteral("fifo.png")));
    write("picture.html", "<p>before<img src=\"fifo.png\"><img src=\"zero.png\">"
                          "<img src=\"/dev/zero\"><img src=\"file:///dev/zero\"><img src=\"" +
                              absolute + "\">behind");
    open(QStringLiteral("picture.html"));
    m_browser->grab();
    QVERIFY(!fifo.wasWaitedFor());
    QVERIFY(m_browser->toPlainText().startsWith(QStringLiteral("before")));
}

/// Found on no honest page; each of these took minutes, or the whole memory.
void tst_FormManual::pageOutOfMeasure_isShownAsFarAsItFits_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<bool>("whole");
    const auto row = [](const char *name, const QByteArray &html, bool whole) {
        QTest::newRow(name) << "<title>T</title><p>begin</p>" + html << whole;
    };
    const auto times = [](const char *html, int count) { return QByteArray(html).repeated(count); };
    row("nested tables", times("<table><tr><td>a</td><td>", 1000) + "end", true);
    row("lists", times("<ul><li>a</li></ul>", 10000) + "end", false);
    row("nested lists", times("<ul><li>a", 10000) + "end", false);
    row("items", "<ol>" + times("<li>a", 10000), false);
    row("anchors", times("<a name=x>a", 10000) + "end", true);
    row("nested bold", times("<b>a", 10000) + "end", true);
    row("rows", "<table>" + times("<tr><td>a</td><td>b</td></tr>", 50000), false);
    row("columns", "<table><tr>" + times("<td>a</td>", 50000), false);
    row("wide cells", "<table>" + times("<tr><td colspan=20000>a</td></tr>", 1000), true);
    row("word", times("a", 500000), true);
    row("entities", times("&amp;", 400000), false);
    row("text", times("word ", 400000), false);
}

void tst_FormManual::pageOutOfMeasure_isShownAsFarAsItFits()
{
    QFETCH(QByteArray, html);
    QFETCH(bool, whole);
    write("large.html", html);
    QElapsedTimer timer;
    timer.start();
    open(QStringLiteral("large.html"));
    m_browser->grab();
    m_form->resize(m_form->width() - 100, m_form->height());
    m_browser->grab();
    QVERIFY2(timer.elapsed() < 15'000, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(m_form->windowTitle().startsWith(u'T'));
    const QString text = m_browser->toPlainText();
    QVERIFY(text.contains(QStringLiteral("begin")));
    QCOMPARE(text.contains(QStringLiteral("The page goes on. It can be opened in the browser.")),
             !whole);
    open(QStringLiteral("one.html")); // the window lives on
    QCOMPARE(shown(), QStringLiteral("one.html"));
}

void tst_FormManual::picture_outOfMeasure_isLeftOut()
{
    QImage(8000, 4000, QImage::Format_Mono).save(m_folder.filePath(QStringLiteral("wide.png")));
    write("endless.png", "\x89PNG");
    QFile endless(m_folder.filePath(QStringLiteral("endless.png")));
    QVERIFY(endless.open(QIODevice::ReadWrite) && endless.resize(qint64(1) << 36));
    QVERIFY(QDir(m_folder.path()).mkpath(QStringLiteral("folder.png")));
    // A small picture in a file that is larger than any that is read.
    const QString swollen = m_folder.filePath(QStringLiteral("swollen.png"));
    QVERIFY(QImage(40, 40, QImage::Format_Mono).save(swollen));
    QVERIFY(QFile::resize(swollen, (qint64(16) << 20) + 1));
    for (const char *name : {"wide.png", "endless.png", "swollen.png", "folder.png", "gone.png"}) {
        write("picture.html", QByteArray("<p>before<img src=\"") + name + "\">after");
        open(QStringLiteral("index.html"));
        open(QStringLiteral("picture.html"));
        m_browser->grab();
        QVERIFY(m_browser->toPlainText().contains(QStringLiteral("after")));
        const QVariant shown =
            m_browser->loadResource(QTextDocument::ImageResource, QUrl(QLatin1String(name)));
        QVERIFY(shown.value<QImage>().width() <= 16); // the mark of a broken picture
    }
}

void tst_FormManual::pageThatIsNone_saysSo_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    QTest::newRow("missing") << "gone.html"
                             << "The manual cannot be shown";
    QTest::newRow("missing of another kind") << "gone.chm"
                                             << "The manual cannot be shown";
    QTest::newRow("folder") << ""
                            << "The manual cannot be shown";
    QTest::newRow("empty") << "empty.html"
                           << "The manual cannot be shown";
    QTest::newRow("huge") << "huge.html"
                          << "The page is too large";
    write("empty.html", "");
    write("huge.html", "<p>");
    QFile huge(m_folder.filePath(QStringLiteral("huge.html")));
    QVERIFY(huge.open(QIODevice::ReadWrite) && huge.resize(qint64(1) << 32));
}

void tst_FormManual::pageThatIsNone_saysSo()
{
    QFETCH(QString, name);
    QFETCH(QString, title);
    open(name);
    QCOMPARE(m_form->windowTitle(), title + QStringLiteral(" - Csound Help"));
    QVERIFY(m_browser->toPlainText().contains(m_folder.filePath(name)));
}

void tst_FormManual::randomBytes_areShownSomehow()
{
    QByteArray noise(50000, '\0');
    unsigned state = randomSeed(1);
    for (char &byte : noise)
        byte = char((state = state * 1103515245 + 12345) >> 16);
    write("noise.html", noise + QByteArray("<table><tr><td><ul>").repeated(200) + "<a href=\"");
    open(QStringLiteral("noise.html"));
    m_browser->grab();
    QCOMPARE(shown(), QStringLiteral("noise.html"));
}

void tst_FormManual::esc_closes()
{
    open(QStringLiteral("one.html"));
    QVERIFY(QTest::qWaitForWindowActive(m_form));
    QTest::keyClick(m_browser, Qt::Key_Escape);
    QTRY_VERIFY(m_form.isNull());
}

void tst_FormManual::nothing_isRemembered()
{
    QWidget owner;
    const HelpViewer viewer = manualViewer(&owner);
    const QString start = m_folder.filePath(QStringLiteral("index.html"));
    viewer.showPage(url(QStringLiteral("one.html")), start);
    viewer.showPage(url(QStringLiteral("two.html")), start);
    QPointer<FormManual> form = owner.findChild<FormManual *>();
    QVERIFY(form->findChild<QToolButton *>(QStringLiteral("buttonBack"))->isEnabled());
    form->close();
    QTRY_VERIFY(form.isNull());
    viewer.showPage(url(QStringLiteral("one.html")), start);
    form = owner.findChild<FormManual *>();
    QVERIFY(form && form->isVisible());
    QVERIFY(!form->findChild<QToolButton *>(QStringLiteral("buttonBack"))->isEnabled());
}

void tst_FormManual::viewer_usesOneWindow()
{
    QPointer<FormManual> form;
    {
        QWidget owner;
        const HelpViewer viewer = manualViewer(&owner);
        const QString start = m_folder.filePath(QStringLiteral("index.html"));
        viewer.showPage(url(QStringLiteral("one.html")), start);
        viewer.showPage(url(QStringLiteral("two.html")), start);
        QCOMPARE(owner.findChildren<FormManual *>().size(), 1);
        form = owner.findChild<FormManual *>();
    }
    QVERIFY(form.isNull()); // it goes with its owner
}

void tst_FormManual::installedManual_isReadable_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("text");
    QTest::newRow("start") << "index.html"
                           << "Table of Contents";
    QTest::newRow("oscil") << "oscil.html"
                           << "ares oscil xamp, xcps [, ifn, iphs]";
    QTest::newRow("largest") << "PartReference.html"
                             << "oscil";
}

void tst_FormManual::installedManual_isReadable()
{
    QFETCH(QString, page);
    QFETCH(QString, text);
    const QString start = QStringLiteral("/usr/share/doc/csound-doc/html/index.html");
    QVERIFY2(QFile::exists(start), "the manual is not installed");
    m_form->showPage(QUrl::fromLocalFile(QFileInfo(start).path() + u'/' + page), start);
    QVERIFY(m_browser->toPlainText().contains(text));
}

ARDIPHON_TEST(tst_FormManual, QApplication)
#include "tst_FormManual.moc"
