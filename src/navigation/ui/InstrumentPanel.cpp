#include "navigation/ui/InstrumentPanel.h"

#include "app/ui/Icons.h"
#include "navigation/ui/Instruments.h"

#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolBar>

namespace ardiphon {

namespace {

constexpr QSize ButtonIconSize(16, 16);
constexpr QSize GripSize(16, 16);

} // namespace

InstrumentPanel::InstrumentPanel(Instruments &instruments, const QString &numberToolbar,
                                 QWidget *parent)
    : QFrame(parent)
{
    setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    ImageINSTR = new QLabel(this);
    ImageINSTR->setObjectName(QStringLiteral("ImageINSTR"));
    ImageINSTR->setPixmap(
        programIcon(QStringLiteral("find-instrument")).pixmap(GripSize, devicePixelRatio()));
    Toolbar_INSTR = newToolbar(QStringLiteral("Toolbar_INSTR"));
    TextInstr = new QLineEdit(this);
    TextInstr->setObjectName(QStringLiteral("TextInstr"));
    Label1 = new QLabel(tr("Go to:"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setBuddy(TextInstr);
    m_numberToolbar = newToolbar(numberToolbar);
    fillToolbars(instruments);
    layOut();
}

QToolBar *InstrumentPanel::newToolbar(const QString &name)
{
    auto *bar = new QToolBar(this);
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

void InstrumentPanel::fillToolbars(Instruments &instruments)
{
    addButton(*Toolbar_INSTR, "instrument-first", tr("First instrument"),
              [&instruments] { instruments.GoToFirstInstrument(); });
    addButton(*Toolbar_INSTR, "instrument-previous", tr("Previous instrument"),
              [&instruments] { instruments.GoToPreviousInstrument(); });
    addButton(*Toolbar_INSTR, "instrument-next", tr("Next instrument"),
              [&instruments] { instruments.GoToNextInstrument(); });
    addButton(*Toolbar_INSTR, "instrument-last", tr("Last instrument"),
              [&instruments] { instruments.GoToLastInstrument(); });

    const auto goToNumber = [this, &instruments] { instruments.GoToInstrumentNumber(*TextInstr); };
    addButton(*m_numberToolbar, "find-instrument", tr("Go to the instrument of this number"),
              goToNumber);
    connect(TextInstr, &QLineEdit::returnPressed, this, goToNumber);
}

void InstrumentPanel::layOut()
{
    auto *rows = new QGridLayout(this);
    rows->setContentsMargins(4, 2, 2, 2);
    rows->setSpacing(2);
    rows->addWidget(ImageINSTR, 0, 0);
    rows->addWidget(Toolbar_INSTR, 0, 1, 1, 3);
    rows->addWidget(Label1, 1, 0, 1, 2);
    rows->addWidget(TextInstr, 1, 2);
    rows->addWidget(m_numberToolbar, 1, 3);
    rows->setColumnStretch(2, 1);
}

} // namespace ardiphon
