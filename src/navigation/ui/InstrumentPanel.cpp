#include "navigation/ui/InstrumentPanel.h"

#include "app/ui/Icons.h"
#include "navigation/ui/Instruments.h"

#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QToolBar>

namespace ardiphon {

namespace {

constexpr QSize ButtonIconSize(16, 16);
constexpr QSize GripSize(7, 58);

/// Two columns of dots, as on other controls that can be moved.
QPixmap gripPicture(const QWidget &panel)
{
    constexpr int step = 4;
    QPixmap picture(GripSize * panel.devicePixelRatio());
    picture.setDevicePixelRatio(panel.devicePixelRatio());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    for (int y = 1; y + 1 < GripSize.height(); y += step)
        for (int x = 0; x + 1 < GripSize.width(); x += step)
            painter.fillRect(x, y, 2, 2, panel.palette().mid());
    return picture;
}

} // namespace

InstrumentPanel::InstrumentPanel(Instruments &instruments, const QString &numberToolbar,
                                 QWidget *parent)
    : QFrame(parent)
{
    setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    ImageINSTR = new QLabel(this);
    ImageINSTR->setObjectName(QStringLiteral("ImageINSTR"));
    ImageINSTR->setPixmap(gripPicture(*this));
    Toolbar_INSTR = newToolbar(QStringLiteral("Toolbar_INSTR"));
    addMoves(instruments);
    TextInstr = new QLineEdit(this);
    TextInstr->setObjectName(QStringLiteral("TextInstr"));
    TextInstr->setAcceptDrops(false); // a file dropped here is opened by the window
    Label1 = new QLabel(tr("Go to:"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setBuddy(TextInstr);
    m_numberToolbar = newToolbar(numberToolbar);
    addNumber(instruments);
    layOut();
}

QToolBar *InstrumentPanel::newToolbar(const QString &name)
{
    auto *bar = new QToolBar(this);
    bar->setMovable(false);
    bar->setObjectName(name);
    bar->setIconSize(ButtonIconSize);
    return bar;
}

void InstrumentPanel::addButton(QToolBar &bar, const char *icon, const QString &toolTip,
                                const std::function<void()> &go)
{
    QAction *const action = bar.addAction(programIcon(QLatin1String(icon)), toolTip);
    connect(action, &QAction::triggered, this, go);
    QWidget *const button = bar.widgetForAction(action);
    button->setObjectName(QStringLiteral("%1(%2)").arg(bar.objectName()).arg(bar.actions().size()));
    button->setFocusPolicy(Qt::TabFocus);
}

void InstrumentPanel::addMoves(Instruments &instruments)
{
    addButton(*Toolbar_INSTR, "instrument-first", tr("First instrument"),
              [&instruments] { instruments.GoToFirstInstrument(); });
    addButton(*Toolbar_INSTR, "instrument-previous", tr("Previous instrument"),
              [&instruments] { instruments.GoToPreviousInstrument(); });
    addButton(*Toolbar_INSTR, "instrument-next", tr("Next instrument"),
              [&instruments] { instruments.GoToNextInstrument(); });
    addButton(*Toolbar_INSTR, "instrument-last", tr("Last instrument"),
              [&instruments] { instruments.GoToLastInstrument(); });
}

void InstrumentPanel::addNumber(Instruments &instruments)
{
    const auto goToNumber = [this, &instruments] { instruments.GoToInstrumentNumber(*TextInstr); };
    addButton(*m_numberToolbar, "find-instrument", tr("Go to the instrument of this number"),
              goToNumber);
    connect(TextInstr, &QLineEdit::returnPressed, this, goToNumber);
}

void InstrumentPanel::layOut()
{
    auto *rows = new QGridLayout(this);
    rows->setContentsMargins(4, 2, 2, 2);
    rows->setSpacing(3);
    rows->addWidget(ImageINSTR, 0, 0, 2, 1);
    rows->addWidget(Toolbar_INSTR, 0, 1, 1, 3);
    rows->addWidget(Label1, 1, 1);
    rows->addWidget(TextInstr, 1, 2);
    rows->addWidget(m_numberToolbar, 1, 3);
    rows->setColumnStretch(2, 1);
}

} // namespace ardiphon
