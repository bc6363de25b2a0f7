#include "help/KeySummary.h"

#include <array>

namespace ardiphon {

namespace {

struct KeyRow
{
    const char *key;
    const char *view; ///< "" when the key has the same meaning everywhere
    const char *action;
};

constexpr const char *csd = "Csd view";
constexpr const char *project = "Orc/Sco view";
constexpr const char *projectOnly = "Orc/Sco view only";

constexpr std::array keyRows{
    KeyRow{"F1", "",
           "If the caret is on opcode words, launch the Csound help for the related opcode; if it "
           "isn't, launch the Csound help index"},
    KeyRow{"F2", "", "Start Csound Help"},
    KeyRow{"F3", "", "Start Csound Console Compiler"},
    KeyRow{"F4", "", "Start CSoundAV"},
    KeyRow{"F5", csd, "Go to first instrument"},
    KeyRow{"F6", csd, "Go to previous instrument"},
    KeyRow{"F7", csd, "Go to next instrument"},
    KeyRow{"F8", csd, "Go to last instrument"},
    KeyRow{"F5", project, "Horizontal view"},
    KeyRow{"F6", project, "Vertical view"},
    KeyRow{"F7", project, "Orchestra view"},
    KeyRow{"F8", project, "Score view"},
    KeyRow{"F9", project, "Refresh windows"},
    KeyRow{"F11", project, "Move caret to Orchestra"},
    KeyRow{"F12", project, "Move caret to Score"},
    KeyRow{"F11", csd, "When split is active, move the caret to the first window"},
    KeyRow{"F12", csd, "When split is active, move the caret to the second window"},
    KeyRow{"CTRL + 1", "", "Show/Hide Line numbers"},
    KeyRow{"CTRL + 2", "", "Show/Hide Bookmarks"},
    KeyRow{"CTRL + 3", "", "Show/Hide On-Line Opcode help"},
    KeyRow{"CTRL + 4", "", "Show/Hide Toolbar"},
    KeyRow{"CTRL + 5", "", "Show/Hide All tools"},
    KeyRow{"CTRL + 6", "", "Restore All tools"},
    KeyRow{"CTRL + 7", projectOnly, "Show/Hide Instrument search"},
    KeyRow{"CTRL + N", "", "New File"},
    KeyRow{"CTRL + O", "", "Open File"},
    KeyRow{"CTRL + S", "", "Save File"},
    KeyRow{"CTRL + P", "", "Print File"},
    KeyRow{"CTRL + Z", "", "Undo"},
    KeyRow{"Ctrl+Alt+Z", "", "Redo"},
    KeyRow{"CTRL + X", "", "Cut"},
    KeyRow{"CTRL + C", "", "Copy"},
    KeyRow{"CTRL + V", "", "Paste"},
    KeyRow{"CTRL + F", "", "Find"},
    KeyRow{"CTRL + H", "", "Find & Replace"},
    KeyRow{"CTRL + G", "", "Find line number"},
    KeyRow{"CTRL + A", "", "Select All"},
    KeyRow{"CTRL + B", "", "Insert bookmark"},
    KeyRow{"CTRL + LEFT", "", "One word left"},
    KeyRow{"CTRL + RIGHT", "", "One word right"},
    KeyRow{"CTRL + UP", "", "to the beginning of paragraph"},
    KeyRow{"CTRL + DOWN", "", "to the end of paragraph"},
    KeyRow{"CTRL + HOME", "", "to the beginning of the text"},
    KeyRow{"CTRL + END", "", "to the end of the text"},
    KeyRow{"CTRL + PGUP", "", "to the beginning of the visible text"},
    KeyRow{"CTRL + PGDN", "", "to the end of the visible text"},
    KeyRow{"CTRL + Y", "", "deletes one line"},
    KeyRow{"CTRL + R", "", "one word to right"},
    KeyRow{"CTRL + L", "", "one word to left"},
    KeyRow{"CTRL + U", "", "to the beginning of the visible text"},
    KeyRow{"CTRL + D", "", "to the end of the visible text"},
};

constexpr const char *page = R"(<h2>ArdiphonPro Help:</h2>
<p>To activate the on-line help, select a file for the Csound help under
File-&gt;Settings-&gt;CSound Help.</p>
<p>As console compiler, use only Csound_con_xxx (Consound.exe), not csound_new.</p>
<h3>Shortcuts</h3>
<table width="100%" cellspacing="0" cellpadding="4">%1</table>
<h3>Mouse</h3>
<p>Left click on Opcode to view parameters</p>
<p>Right click to view popup menu (here you can launch Csound Opcode Help)</p>)";

QString cell(const char *width, const QString &text)
{
    return QStringLiteral("<td width=\"%1\">%2</td>").arg(QLatin1String(width), text);
}

QString escaped(const char *text) { return QString::fromLatin1(text).toHtmlEscaped(); }

} // namespace

QString keySummary(const QString &shade)
{
    QString rows;
    bool shaded = true;
    for (const KeyRow &row : keyRows) {
        rows += shaded ? QStringLiteral("<tr bgcolor=\"%1\">").arg(shade) : QStringLiteral("<tr>");
        rows += cell("18%", QStringLiteral("<b>%1</b>").arg(escaped(row.key))) +
                cell("22%", escaped(row.view)) + cell("60%", escaped(row.action)) +
                QStringLiteral("</tr>\n");
        shaded = !shaded;
    }
    return QString::fromLatin1(page).arg(rows);
}

} // namespace ardiphon
