#pragma once

#include <QObject>

class QLineEdit;

namespace ardiphon {

class LEditOCX;

/// Moves the caret of one editor from instrument to instrument. An instrument is wherever the word
/// "instr" is, also in a comment. Each routine ends with the focus on the editor, and changes
/// nothing else where there is no text or no such instrument.
class Instruments : public QObject
{
    Q_OBJECT

public:
    explicit Instruments(LEditOCX &editor);

    void GoToFirstInstrument();
    void GoToPreviousInstrument();
    void GoToNextInstrument();
    void GoToLastInstrument();

    /// Goes to the first line with "instr" and the number in \a TextInstr as a word of its own, and
    /// trims the field. For a text that is not a number it does nothing, and the focus stays.
    void GoToInstrumentNumber(QLineEdit &TextInstr);

private:
    struct Place
    {
        int TopLine;
        int SelStartLine;
        int SelStartColumn;
    };

    bool hasText();
    bool find(int direction);
    Place leaveForLine(int line);
    void comeBack(const Place &place);
    bool findNumber(const QString &number);

    LEditOCX &m_editor;
};

} // namespace ardiphon
