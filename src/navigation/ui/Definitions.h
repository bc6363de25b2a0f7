#pragma once

#include "navigation/DefinitionRules.h"

#include <QObject>

class QAction;

namespace ardiphon {

class LEditOCX;
class WordTables;

/// Goes from a name to the place where it is defined or next used. There is no table of symbols:
/// the form of the name and its line decide what the editor searches for. A name that is not found
/// changes nothing, without a message.
class Definitions : public QObject
{
    Q_OBJECT

public:
    /// \a editor: the one that is searched, in whichever editor the word was clicked. \a definition
    /// and \a reference: the entries of the popup menu.
    Definitions(LEditOCX &editor, const WordTables &words, QAction &definition, QAction &reference);

    /// Takes the word at the caret of \a clicked, where the popup menu is about to open, and shows
    /// it in the entries. \a available: whether they can be chosen there.
    void prepareEntries(LEditOCX &clicked, bool available = true);

    /// Both use the word that was taken last.
    void GoToDefinition() { goTo(Definition); }
    void GoToReference() { goTo(Reference); }

private:
    void goTo(const DefinitionRules &rules);
    void goToGlobal(const DefinitionRules &rules, const QString &text);
    void goToLocal(const DefinitionRules &rules, const QString &text);

    LEditOCX &m_editor;
    const WordTables &m_words;
    QAction &m_definition;
    QAction &m_reference;
    QString m_word;
};

} // namespace ardiphon
