#include "documents/ui/BookmarksPanel.h"

#include <QGroupBox>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace ardiphon {

namespace {

constexpr QSize PanelSize(210, 330); // pixels
constexpr int Margin = 4;

} // namespace

BookmarksPanel::BookmarksPanel(QWidget *parent)
    : QFrame(parent),
      LabelBookmarks(new QLabel(tr("BOOKMARKS"), this)),
      m_column(new QVBoxLayout(this))
{
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setAutoFillBackground(true);
    LabelBookmarks->setObjectName(QStringLiteral("LabelBookmarks"));
    LabelBookmarks->setAlignment(Qt::AlignCenter);
    LabelBookmarks->setAutoFillBackground(true);
    LabelBookmarks->setBackgroundRole(QPalette::Highlight);
    LabelBookmarks->setForegroundRole(QPalette::HighlightedText);
    m_column->setContentsMargins(Margin, Margin, Margin, Margin);
    m_column->setSpacing(Margin);
    m_column->addWidget(LabelBookmarks);
    resize(PanelSize);
}

void BookmarksPanel::add(const QString &name, const QString &title, QTreeWidget *tree)
{
    auto *frame = new QGroupBox(title, this);
    frame->setObjectName(name);
    auto *inside = new QVBoxLayout(frame);
    inside->setContentsMargins(Margin, Margin, Margin, Margin);
    inside->addWidget(tree);
    m_column->addWidget(frame, 1);
}

QWidget *BookmarksPanel::grip() const { return LabelBookmarks; }

} // namespace ardiphon
