#include "app/ConfigurationBlock.h"
#include "documents/DocumentMirror.h"
#include "documents/DocumentRules.h"
#include "support/TestMain.h"
#include "workbench/Document.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

using namespace ardiphon;

namespace {

constexpr DocumentForm Latin1{false, false, LineEnd::Lf};

} // namespace

/// The record of a document: what it knows after each step of the document's life.
class tst_Document : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void made_hasARoleAndNoName();
    void hasFile_isForPathsAlone_data();
    void hasFile_isForPathsAlone();
    void loaded_knowsFormAndFile();
    void loaded_missingFile_isThatOfADocumentToBe();
    void saved_takesNameFormAndFile();
    void renamed_keepsTheFormAndGuardsTheFileThere();
    void conflict_ofAChangedFile_untilItIsGivenUp();
    void conflict_ofAFileThatGoes_isNone();
    void givenUp_withoutAFile_changesNothing();
    void copies_areEqualAndIndependent();
    void unequal_inAnyPart();
    void mirror_writesTheFieldsOfTheRole_data();
    void mirror_writesTheFieldsOfTheRole();

private:
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }
    QString write(const char *name, const QByteArray &bytes) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", name);
        return path(name);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_Document::init() { m_folder = std::make_unique<QTemporaryDir>(); }

void tst_Document::made_hasARoleAndNoName()
{
    const Document document(DocumentRole::Score);
    QCOMPARE(document.role(), DocumentRole::Score);
    QCOMPARE(document.name(), "");
    QVERIFY(!document.hasFile());
    QCOMPARE(document.form(), DocumentForm());
    QVERIFY(!document.stamp().isOfAFile());
    QCOMPARE(document.conflict(), SaveConflict::None);
}

void tst_Document::hasFile_isForPathsAlone_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("has");
    QTest::newRow("none") << "" << false;
    QTest::newRow("untitled") << "[Untitled]" << false;
    QTest::newRow("untitled CSD") << "[Untitled.CSD]" << false;
    QTest::newRow("path") << "/a.csd" << true;
    QTest::newRow("path without a file") << "/none/such" << true;
}

void tst_Document::hasFile_isForPathsAlone()
{
    QFETCH(QString, name);
    QTEST(Document(DocumentRole::Csd).renamed(name).hasFile(), "has");
}

void tst_Document::loaded_knowsFormAndFile()
{
    const QString file = write("a.orc", "text");
    const Document document = Document::loaded(DocumentRole::Orchestra, file, Latin1);
    QCOMPARE(document.role(), DocumentRole::Orchestra);
    QCOMPARE(document.name(), file);
    QCOMPARE(document.form(), Latin1);
    QCOMPARE(document.stamp(), FileStamp::of(file));
    QCOMPARE(document.conflict(), SaveConflict::None);
}

/// Whoever makes that file meanwhile is not overwritten unasked.
void tst_Document::loaded_missingFile_isThatOfADocumentToBe()
{
    const Document document = Document::loaded(DocumentRole::Csd, path("new.csd"), {});
    QVERIFY(document.hasFile());
    QVERIFY(!document.stamp().isOfAFile());
    QCOMPARE(document.conflict(), SaveConflict::None);
    write("new.csd", "of another program");
    QCOMPARE(document.conflict(), SaveConflict::ChangedFile);
}

void tst_Document::saved_takesNameFormAndFile()
{
    const Document before = Document::loaded(DocumentRole::Csd, write("a.csd", "text"), Latin1);
    const Document after = before.saved(write("b.csd", "longer text"), DocumentForm());
    QCOMPARE(after.role(), DocumentRole::Csd);
    QCOMPARE(after.name(), path("b.csd"));
    QCOMPARE(after.form(), DocumentForm());
    QCOMPARE(after.stamp(), FileStamp::of(path("b.csd")));
    QCOMPARE(after.conflict(), SaveConflict::None);
    QCOMPARE(before.name(), path("a.csd"));
    QCOMPARE(after, before.renamed("x").saved(path("b.csd"), DocumentForm()));
}

void tst_Document::renamed_keepsTheFormAndGuardsTheFileThere()
{
    const Document loaded = Document::loaded(DocumentRole::Score, write("a.sco", "text"), Latin1);
    const Document document = loaded.renamed(write("b.sco", "another"));
    QCOMPARE(document.role(), DocumentRole::Score);
    QCOMPARE(document.name(), path("b.sco"));
    QCOMPARE(document.form(), Latin1);
    QCOMPARE(document.conflict(), SaveConflict::AnotherFile);
    QCOMPARE(document.withFileGivenUp().conflict(), SaveConflict::None);
    // One that comes later is no other file, but the document's own in other hands.
    const Document toBe = loaded.renamed(path("c.sco"));
    QCOMPARE(toBe.conflict(), SaveConflict::None);
    write("c.sco", "late");
    QCOMPARE(toBe.conflict(), SaveConflict::ChangedFile);
}

void tst_Document::conflict_ofAChangedFile_untilItIsGivenUp()
{
    const Document document = Document::loaded(DocumentRole::Csd, write("a.csd", "text"), {});
    write("a.csd", "of another program");
    QCOMPARE(document.conflict(), SaveConflict::ChangedFile);
    const Document after = document.withFileGivenUp();
    QCOMPARE(after.conflict(), SaveConflict::None);
    QCOMPARE(document.conflict(), SaveConflict::ChangedFile);
    write("a.csd", "changed once more");
    QCOMPARE(after.conflict(), SaveConflict::ChangedFile);
}

void tst_Document::conflict_ofAFileThatGoes_isNone()
{
    const Document document = Document::loaded(DocumentRole::Csd, write("a.csd", "text"), {});
    QVERIFY(QFile::remove(path("a.csd")));
    QCOMPARE(document.conflict(), SaveConflict::None); // a save would make it again
}

void tst_Document::givenUp_withoutAFile_changesNothing()
{
    const Document document = Document::loaded(DocumentRole::Csd, write("a.csd", "text"), {});
    QVERIFY(QFile::remove(path("a.csd")));
    QCOMPARE(document.withFileGivenUp(), document);
}

void tst_Document::copies_areEqualAndIndependent()
{
    const Document original = Document::loaded(DocumentRole::Csd, write("a.csd", "text"), Latin1);
    Document copy = original;
    QCOMPARE(copy, original);
    copy = copy.renamed("[Untitled]");
    QVERIFY(copy != original);
    QCOMPARE(original.name(), path("a.csd"));
    const QList<Document> several{original, copy}; // as a history keeps them
    QCOMPARE(several.indexOf(original), 0);
    QCOMPARE(several.indexOf(copy), 1);
}

void tst_Document::unequal_inAnyPart()
{
    const QString file = write("a.csd", "text");
    const Document document = Document::loaded(DocumentRole::Csd, file, {});
    QVERIFY(document != Document::loaded(DocumentRole::Orchestra, file, {}));
    QVERIFY(document != Document::loaded(DocumentRole::Csd, path("b.csd"), {}));
    QVERIFY(document != Document::loaded(DocumentRole::Csd, file, Latin1));
    QVERIFY(document != document.renamed(file));
    write("a.csd", "longer text");
    QVERIFY(document != Document::loaded(DocumentRole::Csd, file, {}));
}

void tst_Document::mirror_writesTheFieldsOfTheRole_data()
{
    QTest::addColumn<DocumentRole>("role");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QList<bool>>("changed");
    QTest::newRow("CSD") << DocumentRole::Csd << QStringList{"x", "o", "s"}
                         << QList<bool>{true, false, false};
    QTest::newRow("orchestra") << DocumentRole::Orchestra << QStringList{"c", "x", "s"}
                               << QList<bool>{false, true, false};
    QTest::newRow("score") << DocumentRole::Score << QStringList{"c", "o", "x"}
                           << QList<bool>{false, false, true};
}

void tst_Document::mirror_writesTheFieldsOfTheRole()
{
    QFETCH(DocumentRole, role);
    ConfigurationBlock config;
    config.CSDFileName = "c";
    config.OrchestraFileName = "o";
    config.ScoreFileName = "s";
    mirrorDocument(config, Document(role).renamed("x"));
    mirrorBookmarks(config, role, true);
    const QStringList names{config.CSDFileName, config.OrchestraFileName, config.ScoreFileName};
    const QList<bool> changed{config.CSDModified, config.OrchestraModified, config.ScoreModified};
    QTEST(names, "names");
    QTEST(changed, "changed");
    mirrorDocument(config, Document(role));
    mirrorBookmarks(config, role, false);
    QVERIFY(QStringList({config.CSDFileName, config.OrchestraFileName, config.ScoreFileName})
                .contains(""));
    QVERIFY(!config.CSDModified && !config.OrchestraModified && !config.ScoreModified);
}

ARDIPHON_TEST(tst_Document, QCoreApplication)
#include "tst_Document.moc"
