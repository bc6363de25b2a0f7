#pragma once

#include "language/DocumentText.h"
#include "language/editor/TextBuffer.h"
#include "platform/Result.h"

namespace ardiphon {

/// The document in the view as a file has it: read, written, and modified or not.
class ViewDocument
{
public:
    ViewDocument(QsciScintillaBase &view, TextBuffer &text);

    /// Makes \a document the text: without history, not modified, and with no unread file.
    void replace(const DocumentText &document);
    /// To be called after replace() with nothing, as the file at \a path could not be read: save()
    /// refuses that path as long as the file exists.
    void noteUnread(const QString &path);

    const DocumentForm &form() const { return m_form; }
    /// As LEditOCX::SaveFile. Does not clear the modified state.
    Result<DocumentForm> save(const QString &path);

    bool isModified() const;
    void clearModified();
    /// Forgets the steps of history; a text that was modified stays so.
    void forgetHistory();

private:
    QsciScintillaBase &m_view;
    TextBuffer &m_text;
    DocumentForm m_form;
    QString m_unreadFile;          ///< a file that is there but could not be read
    bool m_modifiedBefore = false; ///< modified already when the history was forgotten
};

} // namespace ardiphon
