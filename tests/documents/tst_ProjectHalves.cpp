#include "documents/DocumentTexts.h"
#include "documents/ProjectFixture.h"
#include "support/ShownToolTip.h"
#include "support/TestMain.h"

#include <optional>

using namespace ardiphon;

/// Each half of a project on its own, and both together to and from a CSD.
class tst_ProjectHalves : public QObject, private ProjectFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    // One half.
    void half_new_leavesTheOther_data() { halves(); }
    void half_new_leavesTheOther();
    void half_open_takesNoPartner_data() { halves(); }
    void half_open_takesNoPartner();
    void half_openCancelled_keepsEverythingButTheBookmarks();
    void half_save_asksForAName_data() { halves(); }
    void half_save_asksForAName();
    void half_cancelInTheScore_leadsToTheOrchestra();

    // To and from a CSD.
    void export_emptyHalf_saysSo();
    void export_pair_writesOneCsd();
    void export_untitled_proposesTheCutMarker();
    void export_unwritableTarget_saysWhy();
    void import_csd_replacesBothTexts();
    void label_nameLikeMarkup_isShownAsItIs();
    void import_modified_asksForEachHalf();
    void import_noScore_leavesTheNewOrchestra();
    void import_noTags_changesNothing_data();
    void import_noTags_changesNothing();

private:
    struct Half
    {
        const char *New, *Open, *Save, *SaveAs;
        const char *label;
        QString name, ending;
        LEditOCX *editor, *other;
        QString *fileName, *otherName;
    };
    static void halves();
    Half half() const;
};

// One half. ---------------------------------------------------------------------------------------

void tst_ProjectHalves::halves()
{
    QTest::addColumn<bool>("isScore");
    QTest::newRow("orchestra") << false;
    QTest::newRow("score") << true;
}

tst_ProjectHalves::Half tst_ProjectHalves::half() const
{
    QFETCH(bool, isScore);
    QString *orchestra = &m->config.OrchestraFileName;
    QString *score = &m->config.ScoreFileName;
    if (isScore)
        return {"menuFileNuovaScore",
                "menuFileApriScore",
                "menuFileSalvaScore",
                "menuFileSalvaScoreNome",
                "LabelScore",
                QStringLiteral("Score"),
                QStringLiteral("sco"),
                m->score,
                m->orchestra,
                score,
                orchestra};
    return {"menuFileNuovaOrchestra",
            "menuFileApriOrchestra",
            "menuFileSalvaOrchestra",
            "menuFileSalvaOrchestraNome",
            "LabelOrchestra",
            QStringLiteral("Orchestra"),
            QStringLiteral("orc"),
            m->orchestra,
            m->score,
            orchestra,
            score};
}

void tst_ProjectHalves::half_new_leavesTheOther()
{
    m->showPair("o", "s");
    const Half half = this->half();
    const QString other = half.other->Text();
    half.editor->setFocus();
    m->trigger("menuToolsBookmark");
    m->type(half.editor, QStringLiteral("x"));
    m->expectQuestion(QStringLiteral("New ") + half.name,
                      QStringLiteral("File %1 has changed!").arg(half.name), Answer::No);
    m->trigger(half.New);
    QCOMPARE(half.editor->Text(), QString());
    QVERIFY(!half.editor->GetState(TextState));
    QVERIFY(half.editor->hasFocus());
    QCOMPARE(*half.fileName, Untitled);
    QCOMPARE(m->label(half.label), QStringLiteral("File %1: [Untitled]").arg(half.name));
    QCOMPARE(half.editor->GetBookmarkLine(1), -1);
    const QString sideFile = half.ending == u"orc" ? QStringLiteral("bko") : QStringLiteral("bks");
    QVERIFY(!m->read(QStringLiteral("piece.") + sideFile).isEmpty());
    QCOMPARE(half.other->Text(), other);
    QVERIFY(half.otherName->startsWith(m->folder.path()));
}

void tst_ProjectHalves::half_open_takesNoPartner()
{
    m->showPair("o", "s");
    const Half half = this->half();
    const QString other = *half.otherName;
    m->write(QStringLiteral("b.orc"), "O");
    m->write(QStringLiteral("b.sco"), "S");
    const QString path = m->path(QStringLiteral("b.") + half.ending);
    m->config.FontSize = 17;
    m->dialogs.expectOpen(QStringLiteral("Open %1 (*.%2)").arg(half.name, half.ending.toUpper()),
                          path);
    m->trigger(half.Open);
    QCOMPARE(half.editor->Text(), half.ending.left(1).toUpper());
    QCOMPARE(half.editor->FontSize(), 17.0);
    QCOMPARE(*half.fileName, path);
    QCOMPARE(*half.otherName, other);
    QCOMPARE(m->label(half.label), QStringLiteral("File %1: ").arg(half.name) + path);
    QCOMPARE(m->recent("File1"), path);
}

void tst_ProjectHalves::half_openCancelled_keepsEverythingButTheBookmarks()
{
    m->showPair("o", "s");
    m->trigger("menuToolsBookmark");
    m->type(m->orchestra, QStringLiteral("x"));
    m->expectQuestion(QStringLiteral("Open Orchestra"), OrchestraChanged, Answer::No);
    m->dialogs.expectOpen(QStringLiteral("Open Orchestra (*.ORC)"), std::nullopt);
    m->trigger("menuFileApriOrchestra");
    QCOMPARE(m->orchestra->Text(), QStringLiteral("xo"));
    QVERIFY(m->orchestra->GetState(TextState));
    QVERIFY(!m->read(QStringLiteral("piece.bko")).isEmpty());
}

void tst_ProjectHalves::half_save_asksForAName()
{
    m->show();
    const Half half = this->half();
    m->type(half.editor, QStringLiteral("x"));
    const QString path = m->path(QStringLiteral("named"));
    m->dialogs.expectSave(
        QStringLiteral("Save %1 As ... (*.%2)").arg(half.name, half.ending.toUpper()), path);
    m->trigger(half.Save);
    QCOMPARE(m->read(QStringLiteral("named")), QByteArray("x"));
    QCOMPARE(*half.fileName, path);
    QCOMPARE(*half.otherName, Untitled);
    QVERIFY(!half.editor->GetState(TextState));
    QVERIFY(half.editor->hasFocus());
    m->type(half.editor, QStringLiteral("y"));
    m->trigger(half.Save); // it has its name now
    QCOMPARE(m->read(QStringLiteral("named")), QByteArray("xy"));
}

void tst_ProjectHalves::half_cancelInTheScore_leadsToTheOrchestra()
{
    m->showPair("o", "s");
    m->score->setFocus();
    m->type(m->score, QStringLiteral("x"));
    m->expectQuestion(QStringLiteral("New Score"), ScoreChanged, Answer::Cancel);
    m->trigger("menuFileNuovaScore");
    QVERIFY(m->orchestra->hasFocus());
    QCOMPARE(m->score->Text(), QStringLiteral("xs"));
}

// To and from a CSD. ------------------------------------------------------------------------------

namespace {

const Message Failed{QStringLiteral("Conversion Error!"), QStringLiteral("Error!"),
                     MessageIcon::Critical, MessageButtons::Ok};

} // namespace

void tst_ProjectHalves::export_emptyHalf_saysSo()
{
    m->showPair("o", "");
    m->expectMessage(QStringLiteral("No available Orchestra or Score to convert!"));
    m->trigger("menuFileConvertToCSD");
}

void tst_ProjectHalves::export_pair_writesOneCsd()
{
    m->showPair("o\n", "s");
    m->score->setFocus();
    m->dialogs.expectSave(ExportCsdTitle, m->path(QStringLiteral("x.csd")));
    m->trigger("menuFileConvertToCSD");
    QCOMPARE(m->read(QStringLiteral("x.csd")),
             QByteArray("<CsoundSynthesizer>\r\n\r\n<CsOptions>\r\n</CsOptions>\r\n\r\n"
                        "<CsInstruments>\r\n\r\no\r\n\r\n\r\n</CsInstruments>\r\n\r\n"
                        "<CsScore>\r\n\r\ns\r\n\r\n</CsScore>\r\n\r\n"
                        "</CsoundSynthesizer>\r\n\r\n"));
    const FileQuestion &question = m->dialogs.fileQuestions.back();
    QCOMPARE(question.filter, QStringLiteral("Csound CSD (*.csd)|*.csd|All Files (*.*)|*.*"));
    QCOMPARE(question.proposedName, QStringLiteral("piece.csd"));
    QVERIFY(m->orchestra->hasFocus());
    QVERIFY(!m->orchestra->GetState(TextState));
    QCOMPARE(m->config.OrchestraFileName, m->path(QStringLiteral("piece.orc")));
}

void tst_ProjectHalves::export_untitled_proposesTheCutMarker()
{
    m->show();
    m->type(m->orchestra, QStringLiteral("o"));
    m->type(m->score, QStringLiteral("s"));
    m->dialogs.expectSave(ExportCsdTitle, std::nullopt);
    m->trigger("menuFileConvertToCSD");
    QCOMPARE(m->dialogs.fileQuestions.back().proposedName, QStringLiteral("[Untit.csd"));
}

void tst_ProjectHalves::export_unwritableTarget_saysWhy()
{
    m->showPair("o", "s");
    QVERIFY(QDir(m->folder.path()).mkdir(QStringLiteral("x.csd")));
    m->dialogs.expectSave(ExportCsdTitle, m->path(QStringLiteral("x.csd")));
    m->expectMessage(QStringLiteral("The file \"%1\" was not saved: it is a folder.")
                         .arg(m->path(QStringLiteral("x.csd"))));
    m->trigger("menuFileConvertToCSD");
    QCOMPARE(m->orchestra->Text() + m->score->Text(), QStringLiteral("os"));
}

void tst_ProjectHalves::import_csd_replacesBothTexts()
{
    m->showPair("o", "s");
    m->config.FontSize = 15;
    m->dialogs.expectOpen(ImportCsdTitle, m->write(QStringLiteral("new.csd"),
                                                   "<CsInstruments>\nO\n</CsInstruments>\n"
                                                   "<CsScore>\xe9</CsScore>\n"));
    m->trigger("menuFileImportaCSD");
    QCOMPARE(m->orchestra->Text(), QStringLiteral("\r\nO\r\n"));
    QCOMPARE(m->score->Text(), QString(QChar(0xe9)));
    QCOMPARE(m->config.OrchestraFileName, m->path(QStringLiteral("new.orc")));
    QCOMPARE(m->config.ScoreFileName, m->path(QStringLiteral("new.sco")));
    QVERIFY(m->label("LabelScore")
                .startsWith(QStringLiteral("File Score: ") + m->path(QStringLiteral("new.sco"))));
    QCOMPARE(m->orchestra->FontSize(), 15.0);
    QCOMPARE(m->score->FontSize(), 15.0);
    QVERIFY(m->orchestra->GetState(TextState));
    QVERIFY(!QFile::exists(m->path(QStringLiteral("new.orc")))); // only a name until it is saved
    QCOMPARE(m->dialogs.fileQuestions.back().filter,
             QStringLiteral("Csound CSD (*.csd)|*.csd|All Files (*.*)|*.*"));
    m->trigger("menuFileSalvaProgetto");
    QCOMPARE(m->read(QStringLiteral("new.orc")), QByteArray("\r\nO\r\n"));
}

void tst_ProjectHalves::label_nameLikeMarkup_isShownAsItIs()
{
    const QString path = m->write(QStringLiteral("<b>a<b> & \"b\".orc"), "o");
    m->config.OrchestraFileName = path;
    m->show();
    for (const char *name : {"LabelOrchestra", "LabelScore"})
        QCOMPARE(m->control<QLabel>(name)->textFormat(), Qt::PlainText);
    QVERIFY(m->label("LabelOrchestra").contains(path));
    QCOMPARE(readToolTip(m->control<QLabel>("LabelOrchestra")->toolTip()), path);
}

void tst_ProjectHalves::import_modified_asksForEachHalf()
{
    m->showPair("o", "s");
    m->type(m->orchestra, QStringLiteral("x"));
    m->type(m->score, QStringLiteral("x"));
    m->expectQuestion(QStringLiteral("Import CSD File"), OrchestraChanged, Answer::Yes);
    m->expectQuestion(QStringLiteral("Import CSD File"), ScoreChanged, Answer::Cancel);
    m->trigger("menuFileImportaCSD");
    QCOMPARE(m->read(QStringLiteral("piece.orc")), QByteArray("xo"));
    QCOMPARE(m->score->Text(), QStringLiteral("xs"));
}

void tst_ProjectHalves::import_noScore_leavesTheNewOrchestra()
{
    m->showPair("o", "s");
    m->dialogs.expectOpen(ImportCsdTitle, m->write(QStringLiteral("new.csd"),
                                                   "<CsInstruments>O</CsInstruments><csscore>"));
    m->dialogs.expect(Failed);
    m->trigger("menuFileImportaCSD");
    QCOMPARE(m->orchestra->Text(), QStringLiteral("O"));
    QCOMPARE(m->config.OrchestraFileName, m->path(QStringLiteral("new.orc")));
    QCOMPARE(m->score->Text(), QStringLiteral("s"));
    QCOMPARE(m->config.ScoreFileName, m->path(QStringLiteral("piece.sco")));
}

void tst_ProjectHalves::import_noTags_changesNothing_data()
{
    QTest::addColumn<QByteArray>("csd");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("score alone") << QByteArray("<CsScore>e</CsScore>");
    QTest::newRow("lower case") << QByteArray("<csinstruments></csinstruments>");
}

void tst_ProjectHalves::import_noTags_changesNothing()
{
    QFETCH(QByteArray, csd);
    m->showPair("o", "s");
    m->dialogs.expectOpen(ImportCsdTitle, m->write(QStringLiteral("new.csd"), csd));
    m->dialogs.expect(Failed);
    m->trigger("menuFileImportaCSD");
    QCOMPARE(m->orchestra->Text() + m->score->Text(), QStringLiteral("os"));
    QCOMPARE(m->config.OrchestraFileName, m->path(QStringLiteral("piece.orc")));
}

ARDIPHON_TEST(tst_ProjectHalves, QApplication)
#include "tst_ProjectHalves.moc"
