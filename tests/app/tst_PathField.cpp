#include "app/ui/PathField.h"
#include "support/TestMain.h"

#include <QHelpEvent>
#include <QPushButton>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>
#include <QVBoxLayout>

using namespace ardiphon;

namespace {

const QString longPath = QStringLiteral("/home/someone/music/a folder of pieces/") +
                         QStringLiteral("another folder/").repeated(30) +
                         QStringLiteral("the piece.orc");

} // namespace

/// A field that shows a path of any length.
class tst_PathField : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void text_tooLong_isElidedInItsMiddle();
    void text_short_isShownAsInAnyField();
    void wider_showsMore();
    void typing_showsTheTextItself();
    void readOnly_withFocus_staysElided();
    void toolTip_isShownWhereTextIsLeftOut();
    void toolTip_showsTheWholePath_data();
    void toolTip_showsTheWholePath();

private:
    bool looksLikeAPlainField(const QString &text);

    std::unique_ptr<QWidget> m_window;
    PathField *m_field = nullptr;
    QLineEdit *m_plain = nullptr;
    QPushButton *m_button = nullptr;
};

void tst_PathField::init()
{
    m_window = std::make_unique<QWidget>();
    auto *all = new QVBoxLayout(m_window.get());
    m_field = new PathField(m_window.get());
    m_button = new QPushButton(m_window.get());
    all->addWidget(m_field);
    m_plain = new QLineEdit(m_window.get());
    all->addWidget(m_plain);
    all->addWidget(m_button);
    m_window->resize(300, 100);
    m_window->show();
    m_window->activateWindow();
    m_button->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

bool tst_PathField::looksLikeAPlainField(const QString &text)
{
    m_plain->setText(text);
    m_plain->setCursorPosition(0);
    return m_field->size() == m_plain->size() &&
           m_field->grab().toImage() == m_plain->grab().toImage();
}

void tst_PathField::text_tooLong_isElidedInItsMiddle()
{
    m_field->setText(longPath);
    const QStringList parts = m_field->shownText().split(QChar(0x2026));
    QCOMPARE(parts.size(), 2);
    QVERIFY(!parts[0].isEmpty() && longPath.startsWith(parts[0]));
    QVERIFY(parts[1].size() > 5 && longPath.endsWith(parts[1]));
    QCOMPARE(m_field->text(), longPath);
    QVERIFY(looksLikeAPlainField(m_field->shownText()));
}

void tst_PathField::text_short_isShownAsInAnyField()
{
    m_field->setText(QStringLiteral("/a.orc"));
    QCOMPARE(m_field->shownText(), QStringLiteral("/a.orc"));
    QVERIFY(looksLikeAPlainField(QStringLiteral("/a.orc")));
}

void tst_PathField::wider_showsMore()
{
    m_field->setText(longPath);
    const qsizetype before = m_field->shownText().size();
    m_window->resize(700, 100);
    QTRY_VERIFY(m_field->shownText().size() > before * 2);
}

void tst_PathField::typing_showsTheTextItself()
{
    m_field->setText(longPath);
    QTest::mouseClick(m_field, Qt::LeftButton);
    QCOMPARE(m_field->shownText(), longPath);
    QTest::keyClick(m_field, Qt::Key_End);
    QTest::keyClicks(m_field, QStringLiteral("x"));
    QCOMPARE(m_field->text(), longPath + u'x');
    m_button->setFocus();
    QVERIFY(m_field->shownText() != m_field->text());
    QVERIFY(m_field->shownText().endsWith(QStringLiteral(".orcx")));
}

void tst_PathField::readOnly_withFocus_staysElided()
{
    m_field->setText(longPath);
    m_field->setReadOnly(true);
    m_field->setFocus();
    QVERIFY(m_field->shownText() != longPath);
    QTest::keyClick(m_field, Qt::Key_A, Qt::ControlModifier); // to copy it
    QCOMPARE(m_field->shownText(), longPath);
}

void tst_PathField::toolTip_isShownWhereTextIsLeftOut()
{
    const auto ask = [this] {
        QToolTip::hideText();
        const QPoint at = m_field->rect().center();
        QHelpEvent asking(QEvent::ToolTip, at, m_field->mapToGlobal(at));
        QApplication::sendEvent(m_field, &asking);
        return QToolTip::isVisible();
    };
    m_field->setText(QStringLiteral("/a.orc"));
    QVERIFY(!ask());
    m_field->setText(longPath);
    QVERIFY(ask());
    QToolTip::hideText();
}

void tst_PathField::toolTip_showsTheWholePath_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("none") << QString();
    QTest::newRow("short") << "/home/a.orc";
    QTest::newRow("long") << longPath;
    QTest::newRow("without a separator") << QString(250, u'x');
    QTest::newRow("a separator just too far") << "/" + QString(99, u'x') + "/a piece.orc";
    QTest::newRow("markup") << "/tmp/<b>my</b> piece & \"yours\" &lt;.orc";
    QTest::newRow("long markup") << longPath + "<h1>";
}

void tst_PathField::toolTip_showsTheWholePath()
{
    QFETCH(QString, path);
    m_field->setText(QStringLiteral("another"));
    m_field->setText(path);
    QTextDocument shown;
    if (Qt::mightBeRichText(m_field->toolTip()))
        shown.setHtml(m_field->toolTip());
    else
        shown.setPlainText(m_field->toolTip());
    const QStringList lines = shown.toPlainText().split(u'\n');
    QCOMPARE(lines.join(QString()), path);
    for (const QString &line : lines)
        QVERIFY2(line.size() <= 100, qPrintable(line));
    // On the narrowest screen too.
    for (const QString &line : lines)
        QVERIFY(QToolTip::font().pointSize() > 12 ||
                QFontMetrics(QToolTip::font()).horizontalAdvance(line) < 1024);
}

ARDIPHON_TEST(tst_PathField, QApplication)
#include "tst_PathField.moc"
