// The pieces that represent a composer's files, in the real windows.

#include "documents/PieceWindow.h"
#include "support/Require.h"
#include "support/TestMain.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTest>

#include <algorithm>
#include <map>
#include <memory>

#include <sys/stat.h>

using namespace ardiphon;
using Pieces::Piece;

namespace {

/// How a window shows the bytes of a file, found without any code of the program.
QString shownText(QByteArray bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(bytes);
    if (decoder.hasError())
        text = QString::fromLatin1(bytes);
    static const QRegularExpression lineEnd(QStringLiteral("\r\n|\r|\n"));
    return text.replace(lineEnd, QStringLiteral("\r\n"));
}

QString textOf(const QString &path) { return shownText(bytesOf(path)); }

/// What is between the first places of two tags; nothing where one of them is missing.
std::optional<QString> between(const QString &text, const char *section)
{
    const QString name = QLatin1String(section);
    const QString opening = QStringLiteral("<%1>").arg(name);
    const qsizetype start = text.indexOf(opening);
    const qsizetype end = text.indexOf(QStringLiteral("</%1>").arg(name));
    if (start < 0 || end < 0)
        return std::nullopt;
    return text.mid(start + opening.size(), end - start - opening.size());
}

/// What a part of a piece becomes on a way through a CSD: a conversion adds two line ends.
QString wrapped(const QString &part) { return "\r\n\r\n" + part + "\r\n\r\n"; }

/// The number of the file behind a name: another one once the file was written.
ino_t numberOf(const QString &path)
{
    struct stat status = {};
    ::stat(QFile::encodeName(path).constData(), &status);
    return status.st_ino;
}

struct Place
{
    int line = 0;
    int column = 0;
};

/// Where a word first occurs as a word of its own.
std::optional<Place> placeOf(const QString &word, const QString &text)
{
    const QRegularExpression whole(
        QStringLiteral("(?<![\\w$\"<])%1(?!\\w)").arg(QRegularExpression::escape(word)),
        QRegularExpression::UseUnicodePropertiesOption);
    const auto match = whole.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const QString before = text.left(match.capturedStart());
    return Place{int(before.count(u'\n')) + 1, int(before.size() - before.lastIndexOf(u'\n') - 1)};
}

bool same(QColor drawn, Color color)
{
    return drawn == QColor(color.red(), color.green(), color.blue());
}

/// The class of the word in a picture, recognised by its back, or else by its darkest point.
QString drawnColor(const ConfigurationBlock &config, const QImage &image)
{
    const QColor back = image.pixelColor(0, 0);
    const std::pair<Color, const char *> backs[] = {
        {config.ColorOrchestraBK, "Orchestra"},   {config.ColorCSDBK, "CSD"},
        {config.ColorFilesBK, "Files"},           {config.ColorMacroBK, "Macro"},
        {config.ColorInstrEndinBK, "InstrEndin"},
    };
    for (const auto &[color, name] : backs)
        if (same(back, color))
            return QLatin1String(name);

    QColor darkest = back;
    for (int x = 1; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            if (const QColor each = image.pixelColor(x, y);
                qGray(each.rgb()) < qGray(darkest.rgb()))
                darkest = each;
    if (darkest.blue() > darkest.red() + 40)
        return QStringLiteral("Operator");
    return darkest.green() > darkest.red() + 40 ? QStringLiteral("Comment")
                                                : QStringLiteral("Text");
}

} // namespace

class tst_Pieces : public QObject
{
    Q_OBJECT

private slots:
    void table_namesEveryPieceOnce();
    void open_showsEveryCharacter_data() { addPieces(); }
    void open_showsEveryCharacter();
    void words_haveTheirColors_data() { addPieces(); }
    void words_haveTheirColors();
    void save_afterAnUndoneEdit_writesTheSameBytes_data() { addPieces(); }
    void save_afterAnUndoneEdit_writesTheSameBytes();
    void convert_csd_losesNoPart_data() { addPieces(DocumentRole::Csd); }
    void convert_csd_losesNoPart();
    void convert_project_losesNoText_data() { addPieces(DocumentRole::Orchestra); }
    void convert_project_losesNoText();

    void cleanupTestCase() { m_windows.clear(); }

private:
    static void addPieces(std::optional<DocumentRole> kind = {});
    /// The window of the current row, which stays open for the other functions that leave the text
    /// as it is.
    PieceWindow &window()
    {
        auto &window = m_windows[QString::fromUtf8(QTest::currentDataTag())];
        if (!window)
            window = std::make_unique<PieceWindow>(piece());
        return *window;
    }
    /// The piece of the current row.
    static Piece piece()
    {
        const auto named = [](const Piece &each) {
            return each.name == QString::fromUtf8(QTest::currentDataTag());
        };
        const QList<Piece> pieces = Pieces::all();
        return *std::find_if(pieces.begin(), pieces.end(), named);
    }
    static void importBack(PieceWindow &csd, const QString &orchestra, const QString &score);

    std::map<QString, std::unique_ptr<PieceWindow>> m_windows;
};

void tst_Pieces::addPieces(std::optional<DocumentRole> kind)
{
    QTest::addColumn<bool>("byItsName");
    for (const Piece &each : Pieces::all())
        if (!kind || each.kind() == *kind)
            QTest::newRow(qPrintable(each.name)) << true;
}

/// Users keep their own pieces beside the examples, so that folder may hold more than the table.
void tst_Pieces::table_namesEveryPieceOnce()
{
    QStringList named;
    for (const Piece &each : Pieces::all()) {
        QVERIFY2(!each.path.isEmpty(), qPrintable(each.name));
        QVERIFY2(QFileInfo(each.path).size() < 100'000, qPrintable(each.name));
        QVERIFY2(!named.contains(each.name), qPrintable(each.name));
        named.append(each.name);
    }
    QVERIFY(named.size() >= 40);

    const QString folder = Pieces::folders().first();
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = QDir(folder).relativeFilePath(files.next());
        QVERIFY2(name == "expected.txt" || named.contains(name), qPrintable(name));
    }
}

void tst_Pieces::open_showsEveryCharacter()
{
    PieceWindow &opened = window();
    QCOMPARE(opened.editor->Text(), textOf(opened.file));
    QVERIFY(!opened.editor->GetState(TextState));
    QVERIFY2(opened.window->windowTitle().contains("ArdiphonPro"),
             qPrintable(opened.window->windowTitle()));
    if (!opened.partner.isEmpty()) {
        auto *other = opened.half(opened.editor->objectName() == "LEDIT1" ? "LEDIT2" : "LEDIT1");
        QCOMPARE(other->Text(), textOf(opened.partner));
    }
    QCOMPARE(opened.dialogs.verify(), "");
}

void tst_Pieces::words_haveTheirColors()
{
    const Piece expected = piece();
    PieceWindow &opened = window();
    LEditOCX &editor = *opened.editor;
    const QString text = editor.Text();
    QStringList differing;
    for (const Pieces::Word &word : expected.words) {
        const auto at = placeOf(word.text, text);
        QVERIFY2(at, qPrintable(word.text));
        editor.SetTopLine(at->line);
        const QPoint start = editor.PositionToPixels(at->line, at->column);
        const QPoint end = editor.PositionToPixels(at->line, at->column + int(word.text.size()));
        const QRect place(start + QPoint(1, 1), end + QPoint(-1, editor.LineHeight() - 2));
        const QString drawn = drawnColor(opened.config, editor.grab(place).toImage());
        if (drawn != word.color)
            differing.append(word.text + ':' + drawn);
    }
    QCOMPARE(differing, QStringList());
}

void tst_Pieces::save_afterAnUndoneEdit_writesTheSameBytes()
{
    PieceWindow &opened = window();
    const QByteArray before = bytesOf(opened.file);
    const ino_t oldFile = numberOf(opened.file);
    opened.editor->SetSelText("x\r\n");
    QVERIFY(opened.editor->GetState(TextState));
    opened.editor->Undo();
    opened.trigger(opened.editor->objectName() == "LEDIT2" ? "menuFileSalvaScore"
                                                           : "menuFileSalvaOrchestra");
    QVERIFY(!opened.editor->GetState(TextState));
    QCOMPARE(bytesOf(opened.file), before);
    QVERIFY(numberOf(opened.file) != oldFile);
    QCOMPARE(opened.dialogs.verify(), "");
}

void tst_Pieces::convert_csd_losesNoPart()
{
    PieceWindow opened(piece());
    const QString text = textOf(opened.file);
    const auto orchestra = between(text, "CsInstruments");
    const auto score = between(text, "CsScore");
    const QString orc = opened.path("converted.orc");
    if (text.isEmpty())
        opened.dialogs.expect({"No available Document to export!"});
    else if (!orchestra || !score)
        opened.dialogs.expect({"Conversion Error!", "Error!", MessageIcon::Critical});
    else
        opened.dialogs.expectSave("Save Orc/Sco As ... (*.ORC/*.SCO)", orc);
    opened.trigger("menuFileConvertToORCSCO");
    QCOMPARE(opened.dialogs.verify(), "");
    QCOMPARE(opened.editor->Text(), text);
    QCOMPARE(QFile::exists(orc), orchestra && score);
    if (orchestra && score)
        CHECKED(importBack(opened, *orchestra, *score));
}

/// The two files hold the parts, and the CSD made of them holds both again.
void tst_Pieces::importBack(PieceWindow &csd, const QString &orchestra, const QString &score)
{
    const QString orc = csd.path("converted.orc");
    QCOMPARE(QString::fromUtf8(bytesOf(orc)), orchestra);
    QCOMPARE(QString::fromUtf8(bytesOf(csd.path("converted.sco"))), score);
    csd.dialogs.expectOpen("Open Project (Orchestra & Score)", orc);
    csd.trigger("menuFileImportaORCSCO");
    QCOMPARE(csd.dialogs.verify(), "");
    // A tag that the orchestra itself holds comes before the one that closes it.
    if (!orchestra.contains("<CsScore>") && !score.contains("CsInstruments>")) {
        QCOMPARE(between(csd.editor->Text(), "CsInstruments"), wrapped(orchestra));
        QCOMPARE(between(csd.editor->Text(), "CsScore"), wrapped(score));
    }
    QVERIFY(csd.editor->Text().contains(wrapped(score)));
}

void tst_Pieces::convert_project_losesNoText()
{
    PieceWindow opened(piece());
    const QString orchestra = textOf(opened.file);
    const QString score = opened.half("LEDIT2")->Text();
    const QString csd = opened.path("converted.csd");
    if (orchestra.isEmpty() || score.isEmpty()) {
        opened.dialogs.expect({"No available Orchestra or Score to convert!"});
        opened.trigger("menuFileConvertToCSD");
        QCOMPARE(opened.dialogs.verify(), "");
        return;
    }
    opened.dialogs.expectSave("Save CSD File As ... (*.CSD)", csd);
    opened.trigger("menuFileConvertToCSD");
    QCOMPARE(between(QString::fromUtf8(bytesOf(csd)), "CsInstruments"), wrapped(orchestra));
    QCOMPARE(between(QString::fromUtf8(bytesOf(csd)), "CsScore"), wrapped(score));

    opened.dialogs.expectOpen("Open CSound Unified File Format (*.CSD)", csd);
    opened.trigger("menuFileImportaCSD");
    QCOMPARE(opened.editor->Text(), wrapped(orchestra));
    QCOMPARE(opened.half("LEDIT2")->Text(), wrapped(score));
    QCOMPARE(opened.dialogs.verify(), "");
}

ARDIPHON_TEST(tst_Pieces, QApplication)
#include "tst_Pieces.moc"
