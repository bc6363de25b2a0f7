#include "documents/CsdFixture.h"
#include "support/TestMain.h"

#include <QImage>

using namespace ardiphon;

/// The quiet marks of the word and the bracket at the caret.
class tst_MarksFeature : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void word_itsOtherPlacesAreMarked();
    void word_alone_isNotMarked();
    void word_ofAnotherBody_isNotMarked();
    void bracket_bothAreMarked();
    void blockWord_bothAreMarked();
    void selection_hasNoMarks();
    void focusElsewhere_noMarks();
    void notWanted_onlyBracketsAreMarked();

private:
    /// Whether the background of that character is not the view's.
    bool isMarked(int line, int column) const
    {
        const QPoint at = first()->PositionToPixels(line, column);
        const QPoint next = first()->PositionToPixels(line, column + 1);
        const QImage image = first()->grab().toImage();
        const QRgb ground = image.pixel(image.width() - 60, image.height() - 4);
        for (int x = at.x() + 1; x < next.x() - 1; ++x) {
            if (image.pixel(x, at.y() + 2) == ground)
                return false;
        }
        return true;
    }
    QString markedColumns(int line) const
    {
        QString marked;
        for (int column = 0; column < first()->LineLength(line); ++column)
            marked += isMarked(line, column) ? u'x' : u'.';
        return marked;
    }
    void showAt(const QByteArray &text, int line, int column)
    {
        show(text);
        caret(first(), line, column);
    }
};

void tst_MarksFeature::word_itsOtherPlacesAreMarked()
{
    showAt("<CsInstruments>\ninstr 1\nkamp = 1\n; kamp\nkb = kamp+2\nendin\n", 3, 2);
    QTRY_COMPARE(markedColumns(5), QStringLiteral(".....xxxx.."));
    QCOMPARE(markedColumns(3), QStringLiteral("xxxx...."));
    QCOMPARE(markedColumns(4), QStringLiteral("......"));
    caret(first(), 4, 0);
    QTRY_COMPARE(markedColumns(5), QStringLiteral("..........."));
}

void tst_MarksFeature::word_alone_isNotMarked()
{
    showAt("<CsInstruments>\ninstr 1\nkamp = 1\nendin\nkb = 2\n", 3, 2);
    QTRY_COMPARE(markedColumns(3), QStringLiteral("........"));
}

void tst_MarksFeature::word_ofAnotherBody_isNotMarked()
{
    showAt("<CsInstruments>\ninstr 1\nka = 1\nka = 2\nendin\ninstr 2\nka = 1\nendin\n", 3, 1);
    QTRY_COMPARE(markedColumns(4), QStringLiteral("xx...."));
    QCOMPARE(markedColumns(7), QStringLiteral("......"));
}

void tst_MarksFeature::bracket_bothAreMarked()
{
    showAt("<CsInstruments>\nka = (1+(2+3))\n", 2, 5);
    QTRY_COMPARE(markedColumns(2), QStringLiteral(".....x.......x"));
    caret(first(), 2, 8);
    QTRY_COMPARE(markedColumns(2), QStringLiteral("........x...x."));
}

void tst_MarksFeature::blockWord_bothAreMarked()
{
    showAt("<CsInstruments>\ninstr 1\nif k1 > 2 then\nendif\nendin\n", 3, 1);
    QTRY_COMPARE(markedColumns(4), QStringLiteral("xxxxx"));
    QVERIFY(markedColumns(3).startsWith(QLatin1String("xx.")));
}

void tst_MarksFeature::selection_hasNoMarks()
{
    showAt("<CsInstruments>\ninstr 1\nka = 1\nka = 2\nendin\n", 3, 1);
    QTRY_COMPARE(markedColumns(4), QStringLiteral("xx...."));
    caret(first(), 3, 0, 3, 2);
    QTRY_COMPARE(markedColumns(4), QStringLiteral("......"));
}

void tst_MarksFeature::focusElsewhere_noMarks()
{
    showAt("<CsInstruments>\ninstr 1\nka = 1\nka = 2\nendin\n", 3, 1);
    QTRY_COMPARE(markedColumns(4), QStringLiteral("xx...."));
    trigger("menuStudioOutline");
    QTRY_COMPARE(markedColumns(4), QStringLiteral("......"));
    first()->setFocus();
    QTRY_COMPARE(markedColumns(4), QStringLiteral("xx...."));
}

/// Brackets are marked all the same.
void tst_MarksFeature::notWanted_onlyBracketsAreMarked()
{
    showAt("<CsInstruments>\ninstr 1\nka = (1)\nka = 2\nendin\n", 3, 1);
    QTRY_COMPARE(markedColumns(4), QStringLiteral("xx...."));
    m_program->config.MarkOccurrences = false;
    first()->Redraw();
    QTRY_COMPARE(markedColumns(4), QStringLiteral("......"));
    caret(first(), 3, 5);
    QTRY_COMPARE(markedColumns(3), QStringLiteral(".....x.x"));
    m_program->config.MarkOccurrences = true;
    caret(first(), 3, 1);
    QTRY_COMPARE(markedColumns(4), QStringLiteral("xx...."));
}

ARDIPHON_TEST(tst_MarksFeature, QApplication)
#include "tst_MarksFeature.moc"
