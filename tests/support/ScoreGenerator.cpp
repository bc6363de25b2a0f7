#include "support/ScoreGenerator.h"

QByteArrayList ScoreGenerator::score()
{
    m_hasNames = isOneIn(2);
    addMacros();
    const int sections = 1 + below(4);
    for (int i = 0; i < sections; ++i) {
        m_hasTempo = isOneIn(2);
        if (isOneIn(4))
            addRepeatedSection();
        else
            addSection();
        addSectionEnd(i + 1 == sections);
        // A repeat ends with its section, and so does the next after it.
        while (!m_marks.isEmpty() && m_lines.last().trimmed().startsWith('s') && isOneIn(3))
            add("n " + m_marks[below(int(m_marks.size()))] + "\ns");
    }
    return m_lines.join('\n').split('\n');
}

void ScoreGenerator::add(const QByteArray &line)
{
    QByteArray text = line;
    if (isOneIn(12))
        text = oneOf(" ", "\t", "  ", "/* x */ ") + text;
    if (isOneIn(10))
        text += oneOf(" ; note \"x\" $NO", " // }{ note", " ", "\t", " /* { */",
                      " /* over\n lines */ ");
    m_lines.append(text);
    if (isOneIn(20))
        m_lines.append(
            oneOf("", "; i1 0 1", "c i1 0 1", "// i1 0 1", "/* i1 0 1\ni2 0 1 */", "   "));
}

void ScoreGenerator::addMacros()
{
    m_lines << "#define HALF #.5#"
            << "#define TWO#2#"
            << "#define SUM(a'b) #[$a + $b]#"
            << "#define PAIR(time'length)\n  #$time. $length#"
            << "#define NOTE(time'length) #i 1 $time $length 440#"
            << "#define CHORD(time) #i 1 $time 1\ni 2 $PAIR($time'$TWO)\n#"
            << "#define AGAIN(x) #$SUM($x'$HALF)#";
    if (isOneIn(3))
        m_lines << "#define HALF #.25#" << oneOf("", "#undef HALF", "#undef TWO\n#define TWO #3#");
}

void ScoreGenerator::addSection()
{
    if (isOneIn(3)) {
        m_marks.append("mark" + QByteArray::number(++m_serial));
        m_lines.append("m " + m_marks.last());
    }
    addStart();
    addStatements(3 + below(10), 0);
    if (isOneIn(10))
        add(oneOf("x", "x 1 2") + "\ni1 0 1\nv 2\n i2 +\nt 0 30\nb 3");
}

void ScoreGenerator::addRepeatedSection()
{
    m_counters.append("REP" + QByteArray::number(++m_serial));
    m_lines.append(oneOf("r ", "r", " r ") + QByteArray::number(1 + below(3)) + " " +
                   m_counters.last());
    addStart();
    addStatements(2 + below(6), 0);
    m_counters.clear();
}

/// A note of each instrument, so that all have something to carry, and what there is once.
void ScoreGenerator::addStart()
{
    const bool isTempoFirst = isOneIn(2);
    if (m_hasTempo && isTempoFirst)
        addTempo();
    QByteArrayList instruments{"1", "2", "3", "-2"};
    if (m_hasNames)
        instruments << "\"Bell\""
                    << "\"Drum\"";
    for (const QByteArray &instrument : instruments)
        add("i " + instrument + " " + number(9) + " " + number(4) + moreFields());
    m_isAfterNote = true;
    m_isAfterName = m_hasNames;
    if (m_hasTempo && !isTempoFirst)
        addTempo();
}

void ScoreGenerator::addTempo()
{
    QByteArray line = "t 0 " + QByteArray::number(30 + below(200));
    int beat = 0;
    for (int i = below(4); i > 0; --i) {
        beat += below(4);
        line +=
            " " + field(QByteArray::number(beat)) + blank() + QByteArray::number(20 + below(300));
    }
    if (isOneIn(10))
        line += oneOf(" 2", " 1 60", " 90 0", " 90 -5", " , 3");
    add(isOneIn(10) ? "t " + line.mid(4) : line);
    m_isAfterNote = false;
}

void ScoreGenerator::addStatements(int count, int depth)
{
    for (; count > 0; --count)
        addStatement(depth);
}

void ScoreGenerator::addStatement(int depth)
{
    switch (below(14)) {
    case 0:
        addLoop(depth);
        break;
    case 1:
        addCall();
        break;
    case 2:
        add(oneOf("v ", "v") + oneOf("2", ".5", "1", "[1/4]", "$TWO"));
        break;
    case 3:
        add(oneOf("b ", "b", "B ") + oneOf("0", "1", "2.5", "[3*.5]", "+1"));
        break;
    case 4:
        addOther();
        break;
    case 5:
        addBranch(depth);
        break;
    default:
        addNote();
    }
}

/// A statement that is no note and plays none.
void ScoreGenerator::addOther()
{
    const QByteArray time = number(8);
    switch (below(7)) {
    case 0:
        add("f " + QByteArray::number(1 + below(5)) + " " + time + " 8 10 1");
        break;
    case 1:
        add("f 0 " + time + " 0");
        break;
    case 2:
        add("a 0 " + time + " .5");
        break;
    case 3:
        add("q 1 " + time + " 1");
        break;
    case 4:
        add("d 3 " + time + " " + number(3));
        break;
    case 5:
        add(oneOf("C 0", "C 1"));
        return;
    default:
        add("y " + QByteArray::number(below(9)));
    }
    m_isAfterNote = false;
}

void ScoreGenerator::addNote()
{
    // An i alone takes from the note before the last; the last line of a text is no such line.
    if (m_isAfterNote && !m_isAfterName && isOneIn(12)) {
        add("i");
        add("i 1 " + number(9));
        m_isAfterName = false;
        return;
    }
    QByteArray line =
        "i" + blank() + (m_isAfterNote && isOneIn(3) ? QByteArray(".") : instrument());
    const int fields = below(4);
    if (fields > 0)
        line += blank() + start();
    if (fields > 1)
        line += blank() + duration();
    if (fields > 2)
        line += moreFields();
    else if (isOneIn(15))
        line += oneOf(" , 5", " @", " 'x'", " : 1");
    add(line);
    m_isAfterNote = true;
}

void ScoreGenerator::addCall()
{
    const QByteArray time = oneOf("0", "1.5", "$HALF", "$SUM(1'2)", "[2*$TWO]", "$AGAIN(1)");
    const QByteArray length = oneOf("1", ".25", "$HALF.", "[$TWO*$HALF]", "$SUM($HALF'$TWO)");
    switch (below(4)) {
    case 0:
        m_lines.append("#include \"part.sco\"");
        break;
    case 1:
        add("$NOTE(" + time + "'" + length + ")");
        break;
    case 2:
        add("$CHORD(" + time + ")");
        break;
    default:
        add("i 3 $PAIR(" + time + "'" + length + ")");
    }
    m_isAfterNote = false;
}

void ScoreGenerator::addLoop(int depth)
{
    if (depth > 2)
        return;
    m_counters.append("LOOP" + QByteArray::number(++m_serial));
    m_lines.append(oneOf("{ ", "{", " { ") + oneOf("2", "3", "1", "$TWO") + " " +
                   m_counters.last());
    m_isAfterNote = false;
    addStatements(1 + below(3), depth + 1);
    m_lines.append(oneOf("}", " }", "} ; loop"));
    m_counters.removeLast();
    m_isAfterNote = false;
}

void ScoreGenerator::addBranch(int depth)
{
    if (depth > 2)
        return;
    m_isAfterNote = false;
    m_lines.append(oneOf("#ifdef ", "#ifndef ") + oneOf("HALF", "NOBODY"));
    addStatements(1 + below(2), depth + 1);
    m_isAfterNote = false;
    if (isOneIn(2)) {
        m_lines.append("#else");
        addStatements(1 + below(2), depth + 1);
        m_isAfterNote = false;
    }
    m_lines.append(oneOf("#end", "#endif"));
}

void ScoreGenerator::addSectionEnd(bool isLast)
{
    if (isLast && isOneIn(3))
        add(oneOf("e", "e 200", "s"));
    else if (!isLast)
        m_lines.append(oneOf("s", "s 300", "s ; end", "e", "s"));
    m_isAfterNote = false;
}

QByteArray ScoreGenerator::instrument()
{
    if (m_hasNames && isOneIn(4))
        return oneOf("\"Bell\"", "\"Drum\"", "\"Bell.3\"");
    return oneOf("1", "1", "2", "3", "1.5", "2.25", "-2", "[1+1]", "$TWO");
}

QByteArray ScoreGenerator::start()
{
    switch (below(8)) {
    case 0:
        return "+";
    case 1:
        return ".";
    case 2:
        return oneOf("^+1", "^+.25", "^1.5", "^+$HALF", "^+1e0");
    case 3:
        return m_hasTempo ? QByteArray("^+0") : oneOf("^-1", "^-.5", "^-$HALF", "^+-1");
    case 4:
        return m_hasTempo ? field(number(9)) : oneOf("-1", "-.5", "[1-3]", expression(2));
    case 5:
        return isOneIn(3) ? oneOf("1..2", "++1", "<", "3n", "1e", "(", ")2") : number(9);
    default:
        return field(number(12));
    }
}

QByteArray ScoreGenerator::duration()
{
    switch (below(8)) {
    case 0:
        return ".";
    case 1:
        return oneOf("-1", "-.5", "-2", "0");
    case 2:
        return expression(3);
    case 3:
        return isOneIn(3) ? oneOf("<", "1-2", "np3", "~", "5>") : number(3);
    default:
        return field(number(4));
    }
}

/// From the fourth on, which play no role but are to be passed over.
QByteArray ScoreGenerator::moreFields()
{
    QByteArray fields;
    for (int i = below(4); i > 0; --i)
        fields += blank() + oneOf("440", "-3", "[2*3]", "\"a;b\"", "\"x$TWO\"", "8.04", "$HALF");
    if (isOneIn(10))
        fields += " !";
    return fields;
}

/// From 0 to \a most, in one of the ways to write it.
QByteArray ScoreGenerator::number(int most)
{
    const int whole = below(most + 1);
    switch (below(6)) {
    case 0:
        return QByteArray::number(whole) + oneOf(".5", ".25", ".125", ".", ".75");
    case 1:
        return oneOf(".5", ".1", ".333333333", "1e-1", "2.5E0", "+1.5", "0.1");
    default:
        return QByteArray::number(whole);
    }
}

/// Without a division by 0: what is divided by, or to be a whole power, is a number above 0.
QByteArray ScoreGenerator::expression(int depth)
{
    QByteArray text = QByteArray::number(1 + 2 * below(5));
    const bool hasBits = isOneIn(2); // which come first, and may be 0
    for (int i = 1 + below(4); i > 0; --i) {
        if (depth > 1 && isOneIn(3)) {
            QByteArray inner = expression(depth - 1);
            inner.front() = '(';
            inner.back() = ')';
            text += oneOf("+", " - ", "*") + inner;
            continue;
        }
        text += hasBits ? oneOf("+", "-", " * ", "&", "|") : oneOf("+", " - ", "*", "/", "%");
        text += QByteArray::number(1 + 2 * below(4));
    }
    if (isOneIn(5))
        text +=
            oneOf("-2^2", "+2^-1", "+@5", "-@@3", "+~*0", "+$TWO", "- -1", "+(6#3)", "+5 % 3 * 2");
    return '[' + text + ']';
}

/// \a value, perhaps as an expression or with the counter of a loop.
QByteArray ScoreGenerator::field(const QByteArray &value)
{
    if (!m_counters.isEmpty() && isOneIn(2)) {
        const QByteArray &counter = m_counters[below(int(m_counters.size()))];
        return oneOf("[" + value + " + $" + counter + "]", "[$" + counter + ".*.5]", "$" + counter);
    }
    return isOneIn(6) ? "[" + value + "*2]" : value;
}

/// What stands between two fields.
QByteArray ScoreGenerator::blank()
{
    return isOneIn(12) ? oneOf("\t", "  ", "\\\n ", " \\\n", "\n ", " /* a */ ", " ; a\n ")
                       : QByteArray(" ");
}
