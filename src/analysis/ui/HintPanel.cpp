#include "analysis/ui/HintPanel.h"

#include <QBoxLayout>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>

namespace ardiphon {

namespace {

constexpr int Gap = 3; ///< from the line that it explains

} // namespace

HintPanel::HintPanel(QWidget *form)
    : QGroupBox(form),
      Text1(new QPlainTextEdit(this)),
      Command5(new QPushButton(QStringLiteral("Close"), this))
{
    setObjectName(QStringLiteral("Frame1"));
    setAlignment(Qt::AlignHCenter);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setReadOnly(true);
    Text1->setTabChangesFocus(true);
    Text1->setMinimumHeight(2 * fontMetrics().lineSpacing());
    Command5->setObjectName(QStringLiteral("Command5"));
    Command5->setAutoDefault(false);
    connect(Command5, &QPushButton::clicked, this, &HintPanel::closeRequested);

    auto *const all = new QVBoxLayout(this);
    all->addWidget(Text1);
    all->addWidget(Command5, 0, Qt::AlignRight);
    hide();
}

void HintPanel::showHint(const QString &title, const QString &text)
{
    setTitle(title);
    Text1->setPlainText(text);
    show();
    raise();
}

void HintPanel::moveTo(const QRect &room, const QRect &line, const QList<QRect> &controls)
{
    layout()->activate();
    const int wanted = qMax(heightFor(room.width()), minimumSizeHint().height());
    const QRect below(QPoint(room.left(), line.bottom() + Gap), room.bottomRight());
    const QRect above(room.topLeft(), QPoint(room.right(), line.top() - Gap));
    const bool isBelow = below.height() >= qMin(wanted, above.height());
    const QRect side = isBelow ? below : above;
    QRect place = side;
    if (isBelow)
        place.setBottom(qMin(side.bottom(), side.top() + wanted));
    else
        place.setTop(qMax(side.top(), side.bottom() - wanted));
    // A control that it covers makes it larger, and so it may cover another one.
    for (QRect before; before != place;) {
        before = place;
        for (const QRect &each : controls)
            if (place.intersects(each)) {
                place.setTop(qMax(qMin(place.top(), each.top()), side.top()));
                place.setBottom(qMin(qMax(place.bottom(), each.bottom()), side.bottom()));
            }
    }
    setGeometry(place);
}

/// Includes the width of the scroll bar, so that the text does not need one because of it.
int HintPanel::heightFor(int width) const
{
    const int around = sizeHint().width() - Text1->sizeHint().width();
    const int inside = 2 * (Text1->frameWidth() + int(Text1->document()->documentMargin()));
    const int lineWidth = width - around - inside - Text1->verticalScrollBar()->sizeHint().width();
    const QRect text = fontMetrics().boundingRect(QRect(0, 0, lineWidth, 0), Qt::TextWordWrap,
                                                  Text1->toPlainText());
    return sizeHint().height() - Text1->sizeHint().height() + text.height() + inside +
           fontMetrics().lineSpacing();
}

/// It fills its own background, as it covers other controls.
void HintPanel::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.setBrush(palette().window());
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.end();
    QGroupBox::paintEvent(event);
}

} // namespace ardiphon
