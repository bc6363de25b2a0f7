#include "start/ui/ChooserWindow.h"

#include "platform/KeyPlace.h"
#include "start/ui/ChooserColors.h"
#include "start/ui/ChooserLabel.h"
#include "start/ui/PictureButton.h"

#include <QCursor>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <QWindow>

#include <utility>

namespace ardiphon {

namespace {

constexpr int EdgeWidth = 1;
constexpr int TimerInterval = 10; // milliseconds

QPalette fixedPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, chooser::Back);
    palette.setColor(QPalette::WindowText, chooser::Text);
    return palette;
}

QPalette stripPalette()
{
    QPalette palette = fixedPalette();
    palette.setColor(QPalette::Window, chooser::Strip);
    palette.setColor(QPalette::WindowText, chooser::StripText);
    return palette;
}

} // namespace

ChooserWindow::ChooserWindow(const QString &caption, QWidget *owner, Qt::WindowFlags kind)
    : QDialog(owner, kind | Qt::FramelessWindowHint)
{
    setWindowTitle(caption);
    setPalette(fixedPalette());
    setMouseTracking(true);
    // The window itself has the focus until Tab is pressed, so that no picture looks selected.
    setFocusPolicy(Qt::StrongFocus);
    setFocus();

    Timer1.setObjectName(QStringLiteral("Timer1"));
    Timer1.setInterval(TimerInterval);
    connect(&Timer1, &QTimer::timeout, this, &ChooserWindow::darkenWhenLeft);
}

PictureButton *ChooserWindow::addPicture(Picture picture, const QString &name,
                                         const QString &accessibleName,
                                         std::function<void()> choice)
{
    auto *const button = new PictureButton(picture, this);
    button->setObjectName(name);
    button->setAccessibleName(accessibleName);
    connect(button, &PictureButton::mouseMoved, this, [this, button] { lightPicture(button); });
    connect(button, &PictureButton::pressed, this, [this, button] { press(button); });
    connect(button, &PictureButton::released, this, [this, button] { release(button); });
    connect(button, &PictureButton::clicked, this, std::move(choice));
    m_pictures.append(button);
    return button;
}

QLayout *ChooserWindow::addDocumentPictures(const std::function<void()> &newCsd,
                                            const std::function<void()> &newProject)
{
    auto *const row = new QHBoxLayout;
    row->setSpacing(10);
    const auto add = [this, row](Picture picture, const char *name, const char *accessibleName,
                                 Qt::Key key, const std::function<void()> &choice) {
        PictureButton *const button = addPicture(picture, QString::fromLatin1(name),
                                                 QString::fromLatin1(accessibleName), choice);
        button->setReleaseCountsAnywhere(true);
        row->addWidget(button, 0, Qt::AlignVCenter);
        addKey(key, choice);
    };
    add(Picture::Csd, "picCSD", "CSD", Qt::Key_C, newCsd);
    add(Picture::OrcSco, "picORCSCO", "ORC/SCO", Qt::Key_O, newProject);
    return row;
}

void ChooserWindow::addLabel(ChooserLabel *label)
{
    connect(label, &ChooserLabel::mouseMoved, this, [this, label] { lightLabel(label); });
    m_labels.append(label);
}

void ChooserWindow::layOut(QWidget *title, const QList<QWidget *> &buttons, QLayout *body)
{
    auto *const strip = new QWidget(this);
    strip->setAutoFillBackground(true);
    strip->setPalette(stripPalette());
    strip->setMouseTracking(true);
    auto *const stripRow = new QHBoxLayout(strip);
    stripRow->setContentsMargins(12, 5, 5, 5);
    stripRow->setSpacing(4);
    stripRow->addWidget(title, 1);
    for (QWidget *const button : buttons)
        stripRow->addWidget(button);

    auto *const rows = new QVBoxLayout(this);
    rows->setContentsMargins(EdgeWidth, EdgeWidth, EdgeWidth, EdgeWidth);
    rows->setSpacing(0);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    rows->addWidget(strip);
    rows->addLayout(body);
}

void ChooserWindow::centerIn(const QRect &area)
{
    QRect place(QPoint(), sizeHint());
    place.moveCenter(area.center());
    m_place = place.topLeft();
    m_asksForPlace = true;
    move(m_place);
}

void ChooserWindow::lightPicture(PictureButton *lit)
{
    if (!ButtonPressed)
        lightOnly(lit, nullptr);
}

void ChooserWindow::lightLabel(ChooserLabel *lit)
{
    if (!ButtonPressed)
        lightOnly(nullptr, lit);
}

void ChooserWindow::darken()
{
    if (!ButtonPressed)
        lightOnly(nullptr, nullptr);
}

/// Lights one picture, one label or neither, and darkens all the rest.
void ChooserWindow::lightOnly(PictureButton *picture, ChooserLabel *label)
{
    for (PictureButton *const each : std::as_const(m_pictures))
        each->setState(picture && each == picture ? PictureState::Color : PictureState::Gray);
    for (ChooserLabel *const each : std::as_const(m_labels))
        each->setLit(label && each == label && !each->text().isEmpty());
    if (!picture && !label)
        Timer1.stop();
    else if (!Timer1.isActive())
        Timer1.start();
}

void ChooserWindow::press(PictureButton *picture)
{
    lightOnly(picture, nullptr);
    picture->setState(PictureState::Press);
    ButtonPressed = true;
}

void ChooserWindow::release(PictureButton *picture)
{
    picture->setState(PictureState::Color);
    ButtonPressed = false;
}

/// The mouse may leave the window without an event over its background.
void ChooserWindow::darkenWhenLeft()
{
    if (!WindowRect().contains(QCursor::pos()))
        darken();
}

QRect ChooserWindow::WindowRect() const
{
    // The right and bottom edges are at left plus width and top plus height, and count as inside.
    return QRect(m_origin.value_or(frameGeometry().topLeft()), size()).adjusted(0, 0, 1, 1);
}

void ChooserWindow::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    windowHandle()->installEventFilter(this);
}

void ChooserWindow::moveEvent(QMoveEvent *event)
{
    QDialog::moveEvent(event);
    m_origin.reset();
}

/// Some window managers place a window without a frame and do not report where; the toolkit then
/// assumes another place. Each event of the mouse shows where the window is.
bool ChooserWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == windowHandle()) {
        if (event->type() == QEvent::Expose && windowHandle()->isExposed())
            askForPlaceAgain();
        else if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove ||
                 event->type() == QEvent::MouseButtonPress) {
            const auto &pointer = static_cast<const QSinglePointEvent &>(*event);
            m_origin = (pointer.globalPosition() - pointer.position()).toPoint();
        }
    }
    return QDialog::eventFilter(watched, event);
}

/// Asks once, when the window is on the screen: the answer says where it is, for the windows that
/// open over it.
void ChooserWindow::askForPlaceAgain()
{
    if (std::exchange(m_asksForPlace, false) && windowHandle()->position() != m_place)
        windowHandle()->setPosition(m_place);
}

void ChooserWindow::keyPressEvent(QKeyEvent *event)
{
    const Qt::KeyboardModifiers others =
        event->modifiers() & ~Qt::KeyboardModifiers(Qt::AltModifier | Qt::KeypadModifier);
    const auto choice = m_keys.value(keyMeant(event->key(), event->nativeScanCode()));
    if (choice && others == Qt::NoModifier)
        choice();
    else
        event->ignore();
}

void ChooserWindow::mouseMoveEvent(QMouseEvent *) { darken(); }

void ChooserWindow::leaveEvent(QEvent *)
{
    // Some systems report where the mouse is only while it is over a window of the program.
    darken();
}

void ChooserWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), chooser::Edge);
    painter.fillRect(rect().adjusted(EdgeWidth, EdgeWidth, -EdgeWidth, -EdgeWidth), chooser::Back);
}

} // namespace ardiphon
