#include "documents/ProjectWindow.h"
#include "documents/ui/FormCSD.h"
#include "platform/ui/Printer.h"
#include "printing/ui/FormImpostaMargini.h"
#include "support/EditorInput.h"
#include "support/FailingPrinter.h"
#include "support/PrintedPdf.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QFontDatabase>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QToolButton>

#include <memory>

using namespace ardiphon;

/// The print entries of both editor windows, printed into a PDF and read back.
class tst_Printing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // The CSD window.
    void document_whole_isPrinted();
    void document_empty_saysSo();
    void document_blank_isPrinted();
    void document_untitled_hasThePlaceholderInTheHeader();
    void document_ctrlP_prints();
    void document_cancelled_printsNothing();
    void selection_isOfferedAndPrinted();
    void selection_notChosen_printsTheWhole();
    void split_secondViewsSelection_doesNotCount();
    void font_ofTheEditor_prints();
    void font_missing_isReplacedAsInTheEditor();
    void font_largerSize_takesMorePages();
    void tabSize_ofTheEditor_prints();
    void margins_ofTheirWindow_moveTheText();
    void margins_withoutRoom_sayItOnce();
    void unsavedText_isPrintedAndStaysUnsaved();

    // The project's window.
    void project_bothTexts_areCountedFromOneEach();
    void project_emptyHalf_printsNothing_data();
    void project_emptyHalf_printsNothing();
    void project_neverOffersASelection();
    void project_cancelled_printsNothing();
    void project_ctrlP_printsTheProject();
    void halves_printAlone_data();
    void halves_printAlone();
    void halves_empty_saySo_data();
    void halves_empty_saySo();
    void score_isPrintedInTheOrchestrasFont();
    void score_isPrintedInTheOrchestrasSize();
    void untitledHalves_havePlaceholders();
    void project_printerThatFails_endsSilently();
    void project_printerThatFailsInMidJob_printsNoScore();

private:
    void showCsd(const QByteArray &text);
    LEditOCX *csd() const { return m_csd->findChild<LEditOCX *>(QStringLiteral("LEDIT1")); }
    void triggerCsd(const char *name) const
    {
        m_csd->findChild<QAction *>(QLatin1String(name))->trigger();
    }
    /// Expects a print dialog that chooses the PDF.
    void expectPrinter(bool hasSelection, bool selectionOnly)
    {
        m->dialogs.expectPrinter(hasSelection, PrintChoice{m_pdf->printer(), selectionOnly});
    }
    void printCsd()
    {
        expectPrinter(false, false);
        triggerCsd("menuFileStampaOrchestra");
    }

    std::unique_ptr<ProjectWindow> m;
    std::unique_ptr<PrintedPdf> m_pdf;
    QPointer<FormCSD> m_csd;
};

void tst_Printing::init()
{
    m = std::make_unique<ProjectWindow>();
    m->config.DefaultFontName = QStringLiteral("DejaVu Sans Mono");
    m_pdf = std::make_unique<PrintedPdf>();
}

void tst_Printing::cleanup()
{
    delete m_csd;
    QCOMPARE(m->dialogs.verify(), QString());
    m.reset();
}

void tst_Printing::showCsd(const QByteArray &text)
{
    m->config.CSDFileName = m->write(QStringLiteral("my piece.csd"), text);
    m_csd = new FormCSD(m->context);
    m_csd->show();
    require(QTest::qWaitForWindowActive(m_csd), "the window does not come to the front");
    csd()->setFocus();
}

QByteArray numbered(int lines)
{
    QByteArray text;
    for (int i = 1; i <= lines; ++i)
        text += "line-" + QByteArray::number(i) + '\n';
    return text;
}

// The CSD window. ---------------------------------------------------------------------------------

void tst_Printing::document_whole_isPrinted()
{
    showCsd(numbered(150));
    printCsd();
    QCOMPARE(m->dialogs.printQuestions.constFirst().name, QStringLiteral("my piece.csd"));
    QCOMPARE(m_pdf->bodyLines().join(u'\n') + u'\n', QString::fromLatin1(numbered(150)));
    QCOMPARE(m_pdf->headers().mid(0, 2), (QStringList{QStringLiteral("my piece.csd - Page 1"),
                                                      QStringLiteral("my piece.csd - Page 2")}));
}

void tst_Printing::document_empty_saysSo()
{
    showCsd("");
    m->expectMessage(QStringLiteral("No Document to print!"));
    triggerCsd("menuFileStampaOrchestra");
    QVERIFY(m->dialogs.printQuestions.isEmpty());
}

void tst_Printing::document_blank_isPrinted()
{
    showCsd("\n");
    printCsd();
    QCOMPARE(m_pdf->headers(), QStringList{QStringLiteral("my piece.csd - Page 1")});
    QCOMPARE(m_pdf->bodyLines(), QStringList());
}

void tst_Printing::document_untitled_hasThePlaceholderInTheHeader()
{
    m_csd = new FormCSD(m->context); // the configuration names no document
    m_csd->show();
    QVERIFY(QTest::qWaitForWindowActive(m_csd));
    csd()->setFocus();
    csd()->SetText(QStringLiteral("text"));
    printCsd();
    QCOMPARE(m_pdf->headers(), QStringList{QStringLiteral("[Untitled] - Page 1")});
    csd()->ClearState(TextState); // has the window close without a question
}

void tst_Printing::document_ctrlP_prints()
{
    showCsd("text");
    expectPrinter(false, false);
    EditorInput::press(*csd(), Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(m_pdf->bodyLines(), QStringList{QStringLiteral("text")});
}

void tst_Printing::document_cancelled_printsNothing()
{
    showCsd("text");
    m->dialogs.expectPrinter(false, {});
    triggerCsd("menuFileStampaOrchestra");
    QVERIFY(!m_pdf->exists());
}

void tst_Printing::selection_isOfferedAndPrinted()
{
    showCsd("one\ntwo three\nfour\n");
    EditorInput::select(*csd(), 2, 4, 3, 2);
    expectPrinter(true, true);
    triggerCsd("menuFileStampaOrchestra");
    QCOMPARE(m_pdf->bodyLines(), (QStringList{QStringLiteral("three"), QStringLiteral("fo")}));
    QCOMPARE(csd()->SelText(), QStringLiteral("three\r\nfo"));
}

void tst_Printing::selection_notChosen_printsTheWhole()
{
    showCsd("one\ntwo\n");
    EditorInput::select(*csd(), 1, 0, 1, 2);
    expectPrinter(true, false);
    triggerCsd("menuFileStampaOrchestra");
    QCOMPARE(m_pdf->bodyLines(), (QStringList{QStringLiteral("one"), QStringLiteral("two")}));
}

void tst_Printing::split_secondViewsSelection_doesNotCount()
{
    showCsd("one\ntwo\n");
    triggerCsd("buttonSplit");
    auto *second = m_csd->findChild<LEditOCX *>(QStringLiteral("LEDIT2"));
    EditorInput::select(*second, 1, 0, 1, 3);
    second->setFocus();
    printCsd();
    QCOMPARE(m_pdf->bodyLines(), (QStringList{QStringLiteral("one"), QStringLiteral("two")}));
}

void tst_Printing::font_ofTheEditor_prints()
{
    showCsd("text");
    csd()->SetFontName(QStringLiteral("DejaVu Serif"));
    csd()->SetFontBold(true); // only name and size count
    printCsd();
    QVERIFY2(m_pdf->fonts().contains(QStringLiteral("DejaVuSerif ")), qPrintable(m_pdf->fonts()));
}

void tst_Printing::font_missing_isReplacedAsInTheEditor()
{
    showCsd("text");
    csd()->SetFontName(QStringLiteral("A font that was removed"));
    printCsd();
    QString fixed = QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).family();
    QVERIFY2(m_pdf->fonts().contains(fixed.remove(u' ')), qPrintable(m_pdf->fonts()));
}

void tst_Printing::font_largerSize_takesMorePages()
{
    showCsd(numbered(300));
    csd()->SetFontSize(6);
    printCsd();
    const int small = m_pdf->pageCount();
    csd()->SetFontSize(18);
    printCsd();
    QVERIFY(m_pdf->pageCount() > 2 * small);
}

void tst_Printing::tabSize_ofTheEditor_prints()
{
    m->config.TabSize = QStringLiteral("20");
    showCsd("\tafter\n12345678901234567890marked\n");
    printCsd();
    const PrintedPdf::Word marked = m_pdf->word(QStringLiteral("12345678901234567890marked"));
    const double character = marked.box.width() / 26;
    QVERIFY(qAbs(m_pdf->word(QStringLiteral("after")).box.left() - marked.box.left() -
                 20 * character) < 10);
}

void tst_Printing::margins_ofTheirWindow_moveTheText()
{
    showCsd("text");
    QTimer::singleShot(0, m_csd, [] {
        auto *window = qobject_cast<FormImpostaMargini *>(QApplication::activeModalWidget());
        require(window, "the window does not show");
        window->findChild<QLineEdit *>(QStringLiteral("txtSinistro"))
            ->setText(QStringLiteral("40"));
        window->findChild<QLineEdit *>(QStringLiteral("txtSuperiore"))
            ->setText(QStringLiteral("60"));
        QTest::mouseClick(window->findChild<QPushButton *>(QStringLiteral("Command1")),
                          Qt::LeftButton);
    });
    triggerCsd("menuFileMargineStampa");
    printCsd();
    const QRectF place = m_pdf->word(QStringLiteral("text")).box;
    QVERIFY(qAbs(place.left() - 40 * 57) < 30);
    QVERIFY(qAbs(place.top() - (60 * 57 + 570)) < 80);
}

void tst_Printing::margins_withoutRoom_sayItOnce()
{
    m->config.MarginLeft = m->config.MarginRight = 100; // the largest that the window takes
    const auto choose = [this](QPageSize::PageSizeId paper) {
        m->dialogs.expectPrinter(false, PrintChoice{m_pdf->printer(paper), false});
    };
    showCsd("text");
    choose(QPageSize::A5);
    m->expectMessage(QStringLiteral("The print margins leave no room for the text!"));
    triggerCsd("menuFileStampaOrchestra");
    QVERIFY(!m_pdf->exists());
    m->showPair();
    choose(QPageSize::A5);
    m->expectMessage(QStringLiteral("The print margins leave no room for the text!"));
    m->trigger("menuFileStampaProgetto");
    QVERIFY(!m_pdf->exists());
    choose(QPageSize::A4); // which is just wide enough
    triggerCsd("menuFileStampaOrchestra");
    QCOMPARE(m_pdf->bodyLines().join(QString()), QStringLiteral("text"));
}

void tst_Printing::unsavedText_isPrintedAndStaysUnsaved()
{
    showCsd("text");
    EditorInput::type(*csd(), QStringLiteral("new "));
    printCsd();
    QCOMPARE(m_pdf->bodyLines(), QStringList{QStringLiteral("new text")});
    QVERIFY(csd()->GetState(TextState));
    csd()->ClearState(TextState);
}

// The project's window. ---------------------------------------------------------------------------

void tst_Printing::project_bothTexts_areCountedFromOneEach()
{
    m->showPair(numbered(100), "i1 0 1\ne\n");
    expectPrinter(false, false);
    m->trigger("menuFileStampaProgetto");
    QCOMPARE(m_pdf->headers(), (QStringList{QStringLiteral("piece.orc - Page 1"),
                                            QStringLiteral("piece.orc - Page 2"),
                                            QStringLiteral("piece.sco - Page 1")}));
    QCOMPARE(m_pdf->bodyLines().join(u'\n'),
             QString::fromLatin1(numbered(100)) + QStringLiteral("i1 0 1\ne"));
}

void tst_Printing::project_emptyHalf_printsNothing_data()
{
    QTest::addColumn<QByteArray>("orchestra");
    QTest::addColumn<QByteArray>("score");
    QTest::newRow("orchestra") << QByteArray() << QByteArray("e\n");
    QTest::newRow("score") << QByteArray("instr 1\n") << QByteArray();
    QTest::newRow("both") << QByteArray() << QByteArray();
}

void tst_Printing::project_emptyHalf_printsNothing()
{
    QFETCH(QByteArray, orchestra);
    QFETCH(QByteArray, score);
    m->showPair(orchestra, score);
    m->expectMessage(QStringLiteral("No complete Project to print!"));
    m->trigger("menuFileStampaProgetto");
    QVERIFY(m->dialogs.printQuestions.isEmpty());
}

void tst_Printing::project_neverOffersASelection()
{
    m->showPair();
    m->orchestra->SelectAll();
    m->score->SelectAll();
    m->dialogs.expectPrinter(false, {});
    m->trigger("menuFileStampaProgetto");
}

void tst_Printing::project_cancelled_printsNothing()
{
    m->showPair();
    m->dialogs.expectPrinter(false, {});
    m->trigger("menuFileStampaProgetto");
    QVERIFY(!m_pdf->exists());
}

void tst_Printing::project_ctrlP_printsTheProject()
{
    m->showPair();
    QVERIFY(QTest::qWaitForWindowActive(m->window));
    expectPrinter(false, false);
    EditorInput::press(*m->orchestra, Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(m_pdf->pageCount(), 2);
}

void tst_Printing::halves_printAlone_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("header");
    QTest::addColumn<QString>("line");
    QTest::newRow("orchestra") << QByteArray("buttonPrintOrchestra") << "piece.orc - Page 1"
                               << "endin";
    QTest::newRow("score") << QByteArray("buttonPrintScore") << "piece.sco - Page 1"
                           << "e";
}

void tst_Printing::halves_printAlone()
{
    QFETCH(QByteArray, button);
    m->showPair();
    expectPrinter(false, false);
    QTest::mouseClick(m->control<QToolButton>(button.constData()), Qt::LeftButton);
    QTEST(m_pdf->headers().join(u' '), "header");
    QTEST(m_pdf->bodyLines().constLast(), "line");
}

void tst_Printing::halves_empty_saySo_data()
{
    QTest::addColumn<QByteArray>("entry");
    QTest::newRow("orchestra") << QByteArray("menuFileStampaOrchestra");
    QTest::newRow("score") << QByteArray("menuFileStampaScore");
}

void tst_Printing::halves_empty_saySo()
{
    QFETCH(QByteArray, entry);
    const bool isScore = entry == "menuFileStampaScore";
    m->showPair(isScore ? "instr 1\n" : "", isScore ? "" : "e\n");
    m->expectMessage(QStringLiteral("No Document to print!"));
    m->trigger(entry.constData());
}

void tst_Printing::score_isPrintedInTheOrchestrasFont()
{
    m->showPair();
    m->orchestra->SetFontName(QStringLiteral("DejaVu Serif"));
    EditorInput::select(*m->score, 1, 0, 1, 2);
    expectPrinter(true, true);
    m->trigger("menuFileStampaScore");
    QCOMPARE(m_pdf->bodyLines(), QStringList{QStringLiteral("i1")});
    QVERIFY2(m_pdf->fonts().contains(QStringLiteral("DejaVuSerif")), qPrintable(m_pdf->fonts()));
    QVERIFY(!m_pdf->fonts().contains(QStringLiteral("Mono")));
}

void tst_Printing::score_isPrintedInTheOrchestrasSize()
{
    m->showPair("instr 1\n", numbered(300));
    m->orchestra->SetFontSize(18);
    m->score->SetFontSize(6);
    const auto pagesOf = [this](const char *entry) {
        expectPrinter(false, false);
        m->trigger(entry);
        return m_pdf->pageCount();
    };
    const int large = pagesOf("menuFileStampaScore");
    m->orchestra->SetFontSize(6);
    QVERIFY(large > 2 * pagesOf("menuFileStampaScore"));
}

/// The score is not tried behind an orchestra that could not be printed.
void tst_Printing::project_printerThatFails_endsSilently()
{
    m->showPair();
    auto broken = std::make_unique<QPrinter>();
    broken->setOutputFileName(QStringLiteral("/nowhere/printed.pdf"));
    m->dialogs.expectPrinter(false,
                             PrintChoice{std::make_shared<Printer>(std::move(broken)), false});
    const QString refusal = QStringLiteral("QPainter::begin(): Returned false");
    QTest::ignoreMessage(QtWarningMsg, qPrintable(refusal));
    QTest::failOnWarning(QRegularExpression(QRegularExpression::escape(refusal)));
    m->trigger("menuFileStampaProgetto");
}

void tst_Printing::project_printerThatFailsInMidJob_printsNoScore()
{
    m->showPair(QByteArray("line\n").repeated(1000));
    int asked = 0;
    auto failing = std::make_unique<FailingPrinter>(m_pdf->path(), 2, QPrinter::Active, asked);
    m->dialogs.expectPrinter(false,
                             PrintChoice{std::make_shared<Printer>(std::move(failing)), false});
    m->trigger("menuFileStampaProgetto");
    QCOMPARE(m_pdf->headers(), QStringList({QStringLiteral("piece.orc - Page 1"),
                                            QStringLiteral("piece.orc - Page 2")}));
    QCOMPARE(asked, 2); // and not once more for the score
}

void tst_Printing::untitledHalves_havePlaceholders()
{
    m->show();
    EditorInput::type(*m->orchestra, QStringLiteral("a"));
    EditorInput::type(*m->score, QStringLiteral("e"));
    expectPrinter(false, false);
    m->trigger("menuFileStampaProgetto");
    QCOMPARE(m_pdf->headers(), (QStringList{QStringLiteral("[Untitled] - Page 1"),
                                            QStringLiteral("[Untitled] - Page 1")}));
    m->orchestra->ClearState(TextState);
    m->score->ClearState(TextState);
}

ARDIPHON_TEST(tst_Printing, QApplication)
#include "tst_Printing.moc"
