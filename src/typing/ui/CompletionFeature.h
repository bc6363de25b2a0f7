#pragma once

#include "typing/CompletionPlace.h"
#include "typing/KnownSnippets.h"
#include "typing/OpcodeSignatures.h"
#include "typing/TextPlaces.h"
#include "typing/ui/CompletionPopup.h"
#include "workbench/ui/EditorView.h"
#include "workbench/ui/WindowFeature.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <optional>

namespace ardiphon {

class LEditOCX;
struct EditorKey;

/// Suggestions while one types: after two letters of a word, behind an opening bracket, and with a
/// command. A key that types is never taken; Tab and Shift+Tab take a suggestion while one is
/// offered, and walk through the places of one that was taken.
class CompletionFeature : public QObject, public WindowFeature
{
    Q_OBJECT

public:
    CompletionFeature();
    ~CompletionFeature() override;

    void install(FeatureHost &host) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// A character that is about to be typed in a view.
    struct Typing
    {
        const LEditOCX *editor = nullptr;
        int character = 0;
        quint64 revision = 0; ///< that the text will have then
    };
    /// A word whose suggestions were sent away.
    struct Dismissed
    {
        int line = 0;
        int start = 0; ///< behind the blanks of the line, which may change
    };

    /// The line up to the caret for which there was no suggestion. More letters of the word have
    /// none either.
    struct Unmatched
    {
        int line = 0;
        QString text;
    };

    void follow(const EditorView &view);
    void keyDown(const EditorView &view, EditorKey &key);
    bool listKey(const EditorView &view, const EditorKey &key);
    bool placesKey(const EditorView &view, const EditorKey &key);
    void textChanged(const EditorView &view, const TextChange &change, quint64 revision);
    void typed(const EditorView &view, int character);
    void caretMoved(const EditorView &view);
    void viewMoved(const EditorView &view);

    bool begins(const EditorView &view, int character) const;
    static Dismissed dismissed(const EditorView &view, const CompletionPlace &place);
    bool isDismissed(const EditorView &view, const CompletionPlace &place) const;
    bool isUnmatched(const EditorView &view) const;
    void noteUnmatched(const EditorView &view);
    void ask();
    void open(const EditorView &view, CompletionReason reason);
    void goOn(const EditorView &view);
    void close();
    QRect wordOnScreen(const EditorView &view, const CompletionPlace &place) const;
    const QList<Snippet> &snippets();
    QStringList filesOf(DocumentRole role) const;

    void take(bool withArgumentsToo);
    TakenText argumentsOf(const Completion &chosen, const CompletionPlace &place) const;
    void put(const EditorView &view, const PlaceSpan &where, const TakenText &taken);
    void copyTaken(const EditorView &view, const PlaceSpan &where, const QString &line,
                   const QString &text) const;
    void goTo(const EditorView &view, const PlaceSpan &span) const;
    void fillPartners(const EditorView &view);
    bool isOpen() const;

    FeatureHost *m_host = nullptr;
    std::unique_ptr<OpcodeSignatures> m_opcodes;
    QPointer<CompletionPopup> m_popup; ///< made when it is needed for the first time
    std::optional<EditorView> m_view;  ///< that the list or the places belong to
    CompletionReason m_reason{};       ///< why the list was opened
    KnownSnippets m_snippets;
    Typing m_typing;
    Dismissed m_dismissed;
    Unmatched m_unmatched;
    TextPlaces m_places;
    int m_topLine = 0;
    bool m_isComposing = false;
    bool m_isTaking = false;
};

} // namespace ardiphon
