#include "documents/ui/HalfView.h"

#include "app/ui/ToolTip.h"
#include "documents/DocumentRules.h"
#include "documents/ui/HalfDocument.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/Gutter.h"
#include "platform/Twips.h"

#include <QLabel>
#include <QToolBar>

namespace ardiphon {

HalfView::HalfView(HalfDocument &document, Gutter &gutter, QLabel &label, QToolBar &toolbar,
                   QObject *parent)
    : QObject(parent), m_document(document), m_gutter(gutter), m_label(label), m_toolbar(toolbar)
{
    connect(&document, &HalfDocument::titleChanged, this, &HalfView::writeLabel);
    connect(&editor(), &LEditOCX::modifiedChanged, this, &HalfView::refreshRequested);
}

LEditOCX &HalfView::editor() const { return m_document.editor(); }

bool HalfView::isShown() const { return !editor().isHidden(); }

void HalfView::setShown(bool shown, bool lineNumbers)
{
    if (shown == isShown())
        return;
    editor().setVisible(shown);
    m_label.setVisible(shown);
    m_toolbar.setVisible(shown);
    m_gutter.setVisible(shown && lineNumbers);
}

void HalfView::place(const HalfLayout &places)
{
    editor().setGeometry(toPixels(places.editor));
    m_gutter.setGeometry(toPixels(places.gutter));
    m_label.setGeometry(toPixels(places.label));
    m_toolbar.setGeometry(toPixels(places.toolbar));
    // The covered part has no buttons: those without room are behind the arrow at the end, which
    // the toolkit places one pixel too far.
    const int covered = m_toolbar.width() - toPixels(places.toolbarRoom);
    m_toolbar.setContentsMargins(0, 0, covered > 0 ? covered + 1 : 0, 0);
    m_gutter.update();
}

void HalfView::setColumn(bool column)
{
    m_toolbar.setOrientation(column ? Qt::Vertical : Qt::Horizontal);
}

void HalfView::setNarrowLabel(bool narrow)
{
    m_narrow = narrow;
    const bool marked = m_label.text().endsWith(u'*');
    writeLabel();
    if (marked)
        m_label.setText(markedModified(m_label.text()));
}

void HalfView::writeLabel()
{
    const QString full = m_document.half().label(m_document.fileName());
    const auto narrow = ProjectHalf::shortLabel(m_document.fileName());
    m_label.setText(m_narrow && narrow ? *narrow : full);
    m_label.setToolTip(m_document.hasFile() ? plainToolTip(m_document.fileName()) : QString());
    emit refreshRequested();
}

void HalfView::refresh()
{
    if (m_document.isModified())
        m_label.setText(markedModified(m_label.text()));
}

} // namespace ardiphon
