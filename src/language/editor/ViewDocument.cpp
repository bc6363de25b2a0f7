#include "language/editor/ViewDocument.h"

#include "platform/DocumentFile.h"

#include <QFileInfo>
#include <Qsci/qsciscintillabase.h>

namespace ardiphon {

using Sci = QsciScintillaBase;

namespace {

QString canonical(const QString &path) { return QFileInfo(path).canonicalFilePath(); }

} // namespace

ViewDocument::ViewDocument(QsciScintillaBase &view, TextBuffer &text) : m_view(view), m_text(text)
{
    m_text.setLineEndKind(m_form.lineEnd);
}

void ViewDocument::replace(const DocumentText &document)
{
    m_form = document.form;
    m_unreadFile.clear();
    m_modifiedBefore = false;
    m_text.reset(document.utf8);
    m_text.setLineEndKind(m_form.lineEnd);
}

void ViewDocument::noteUnread(const QString &path) { m_unreadFile = canonical(path); }

Result<DocumentForm> ViewDocument::save(const QString &path)
{
    if (!m_unreadFile.isEmpty() && canonical(path) == m_unreadFile)
        return FileFailure{FileFailure::Kind::NotRead};
    DocumentForm form = m_form;
    const QByteArray utf8 = m_text.bytes(0, m_text.size()).toByteArray();
    if (const auto written = writeDocumentFile(path, encodeDocument(utf8, form)); !written)
        return written.failure();
    m_form = form;
    return form;
}

bool ViewDocument::isModified() const
{
    return m_modifiedBefore || m_view.SendScintilla(Sci::SCI_GETMODIFY) != 0;
}

void ViewDocument::clearModified()
{
    m_modifiedBefore = false;
    m_view.SendScintilla(Sci::SCI_SETSAVEPOINT);
}

void ViewDocument::forgetHistory()
{
    m_modifiedBefore = isModified();
    m_view.SendScintilla(Sci::SCI_EMPTYUNDOBUFFER);
}

} // namespace ardiphon
