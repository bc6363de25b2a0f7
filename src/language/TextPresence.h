#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>

#include <optional>

namespace ardiphon {

/// A text in a buffer with a gap: a change takes as much time as the gap has to move.
class GappedText
{
public:
    virtual qsizetype size() const = 0;
    virtual qsizetype gap() const = 0;
    /// Bytes of the text. A range with the gap inside it makes the gap move.
    virtual QByteArrayView bytes(qsizetype start, qsizetype end) const = 0;

protected:
    ~GappedText() = default;
};

/// Finds out whether short texts are in a document, for callers that ask often. For a text that it
/// was asked about before, it looks only where the document has changed since. It never makes the
/// gap move.
class TextPresence
{
public:
    explicit TextPresence(const GappedText &text) : m_text(text) {}

    /// To be called before \a removed bytes at \a at are removed, or others are inserted there.
    void aboutToChange(qsizetype at, qsizetype removed);
    /// Whether these bytes are anywhere in the document; false for no bytes.
    bool contains(const QByteArray &wanted);

private:
    /// What is known of one text.
    struct Known
    {
        std::optional<qsizetype> place; ///< where it was found
        qsizetype size = 0;             ///< of the document then
        qsizetype keptStart = 0;        ///< so many bytes of its beginning are still the same
        qsizetype keptEnd = 0;          ///< and so many of its end
    };

    std::optional<qsizetype> placeNow(const Known &known, const QByteArray &wanted) const;
    std::optional<qsizetype> keptPlace(const Known &known, qsizetype length) const;
    std::optional<qsizetype> find(const QByteArray &wanted, qsizetype from, qsizetype to) const;

    const GappedText &m_text;
    QHash<QByteArray, Known> m_known;
};

} // namespace ardiphon
