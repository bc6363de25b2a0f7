#include "workbench/Document.h"

namespace ardiphon {

bool isUntitled(const QString &name)
{
    return name == Untitled || name == QLatin1String("[Untitled.CSD]");
}

Document Document::loaded(DocumentRole role, const QString &path, const DocumentForm &form)
{
    return Document(role).saved(path, form); // the same state as after a save: text and file agree
}

Document Document::saved(const QString &path, const DocumentForm &form) const
{
    Document document(m_role);
    document.m_name = path;
    document.m_form = form;
    document.m_stamp = FileStamp::of(path);
    return document;
}

Document Document::renamed(const QString &name) const
{
    Document document(m_role);
    document.m_name = name;
    document.m_form = m_form;
    document.m_isOverAnother = FileStamp::of(name).isOfAFile();
    return document;
}

Document Document::withFileGivenUp() const
{
    const FileStamp stamp = FileStamp::of(m_name);
    Document document = *this;
    if (stamp.isOfAFile()) {
        document.m_stamp = stamp;
        document.m_isOverAnother = false;
    }
    return document;
}

bool Document::hasFile() const { return !m_name.isEmpty() && !isUntitled(m_name); }

SaveConflict Document::conflict() const
{
    if (!m_stamp.isOutdated(m_name))
        return SaveConflict::None;
    return m_isOverAnother ? SaveConflict::AnotherFile : SaveConflict::ChangedFile;
}

} // namespace ardiphon
