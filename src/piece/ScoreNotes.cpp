#include "piece/ScoreNotes.h"

#include "piece/ScoreSections.h"

#include <algorithm>

namespace ardiphon {

struct ScoreNotes::Reading
{
    Reading(const LineSource &lines, ScoreIncludes includes) : text(lines, std::move(includes)) {}

    void step(qint64 &steps);
    qsizetype notesOf(int section) const;

    ScoreText text;
    ScoreNoteStore store;
    ScoreSections sections{store};
    bool isSettling = false; ///< the section that ended
    bool isRead = false;
    bool isComplete = false;
    int sectionCount = 0; ///< whose notes are in order
};

/// Takes what it does off \a steps.
void ScoreNotes::Reading::step(qint64 &steps)
{
    if (isSettling) {
        isSettling = !store.settle(steps);
        if (isSettling)
            return;
        sectionCount = int(sections.sections().size());
    }
    if (isRead) {
        isComplete = true;
        return;
    }
    --steps;
    if (store.count() >= ScoreSections::MostNotes) {
        isRead = true;
    } else if (sections.isRepeating()) {
        sections.repeatLine();
    } else {
        const ScoreText::Step step = text.next();
        if (step == ScoreText::Step::Line)
            sections.readLine(text.line(), text.number());
        isRead = step == ScoreText::Step::End;
    }
    if (isRead)
        sections.finish();
    isSettling = sections.takeSectionEnd();
}

/// Where the notes of \a section end.
qsizetype ScoreNotes::Reading::notesOf(int section) const
{
    const auto &all = sections.sections();
    return size_t(section) + 1 < all.size() ? all[size_t(section) + 1].firstNote
                                            : sections.endOfSections();
}

ScoreNotes::ScoreNotes(const LineSource &lines, ScoreIncludes includes)
    : m_reading(std::make_unique<Reading>(lines, std::move(includes)))
{
}

ScoreNotes::~ScoreNotes() = default;

void ScoreNotes::restart()
{
    m_reading->text.restart();
    m_reading->sections.restart();
    m_reading->isSettling = false;
    m_reading->isRead = false;
    m_reading->isComplete = false;
    m_reading->sectionCount = 0;
}

bool ScoreNotes::readOn(int lines)
{
    for (qint64 steps = std::max(lines, 1); steps > 0 && !isComplete();)
        m_reading->step(steps);
    return !isComplete();
}

bool ScoreNotes::readOn(QDeadlineTimer deadline)
{
    constexpr int LinesAtOnce = 128; // a small part of what a slice takes
    while (readOn(LinesAtOnce))
        if (deadline.hasExpired())
            return true;
    return false;
}

bool ScoreNotes::isComplete() const { return m_reading->isComplete; }

bool ScoreNotes::isTruncated() const
{
    return m_reading->text.isTruncated() || m_reading->sections.isTruncated() ||
           m_reading->store.count() >= ScoreSections::MostNotes;
}

qsizetype ScoreNotes::count() const
{
    const int sections = sectionCount();
    return sections == 0 ? 0 : m_reading->notesOf(sections - 1);
}

ScoreNote ScoreNotes::note(qsizetype index) const
{
    const StoredNote &stored = m_reading->store[index];
    const auto &sections = m_reading->sections.sections();
    // The last section that begins at or before it; those without notes begin where the next does.
    const auto next = std::upper_bound(
        sections.begin(), sections.end(), index,
        [](qsizetype value, const auto &section) { return value < section.firstNote; });
    const ScoreSections::Section &section = *std::prev(next);

    ScoreNote note;
    note.line = stored.line();
    note.section = int(next - sections.begin()) - 1;
    note.turnsOff = stored.turnsOff();
    if (stored.name() >= 0)
        note.name = m_reading->sections.name(stored.name());
    else
        note.number = double(stored.number());
    note.startBeats = note.startSeconds = stored.start();
    note.durationBeats = note.durationSeconds = stored.beats();
    if (section.tempo >= 0) {
        const ScoreTempo &tempo = m_reading->sections.tempo(section.tempo);
        note.startSeconds = tempo.seconds(note.startBeats);
        note.durationSeconds = tempo.secondsOf(note.startBeats, note.durationBeats);
    }
    return note;
}

int ScoreNotes::sectionCount() const { return m_reading->sectionCount; }

ScoreSection ScoreNotes::section(int index) const
{
    const ScoreSections::Section &section = m_reading->sections.sections()[size_t(index)];
    return {section.line, section.firstNote, m_reading->notesOf(index) - section.firstNote,
            section.isPlayed};
}

qsizetype ScoreNotes::bytes() const
{
    return m_reading->store.bytes() + m_reading->sections.bytes();
}

} // namespace ardiphon
