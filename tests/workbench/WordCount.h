#pragma once

#include "language/editor/LEditOCX.h"
#include "workbench/ui/CommandSet.h"
#include "workbench/ui/FeatureHost.h"
#include "workbench/ui/WindowFeature.h"

#include <QDockWidget>
#include <QLabel>

#include <list>
#include <numeric>
#include <vector>

/// The example of docs/architecture.md: a dock that shows how many words the window's texts have.
class WordCount : public ardiphon::WindowFeature
{
public:
    void install(ardiphon::FeatureHost &host) override
    {
        m_label = new QLabel;
        m_label->setObjectName(QStringLiteral("LabelWords"));
        QDockWidget *const dock = host.addDock({"DockWords", "Words"}, m_label);

        host.commands().add({"menuStudioWords", "&Words"}, {"menuStudioWords", "Ctrl+Shift+W"});
        host.commands().bind("menuStudioWords", dock,
                             [dock] { dock->setVisible(dock->isHidden()); });

        for (ardiphon::LEditOCX *const editor : host.editors())
            follow(*editor);
    }

private:
    using LineWords = std::vector<int>; ///< how many words each line of a text has

    void follow(ardiphon::LEditOCX &editor)
    {
        LineWords &lines = m_texts.emplace_back();
        take(lines, editor, {1, 0, editor.LineCount()});
        QObject::connect(&editor, &ardiphon::LEditOCX::textChanged, m_label,
                         [this, &lines, &editor](const ardiphon::TextChange &change) {
                             take(lines, editor, change);
                         });
    }

    /// Counts in the lines that changed alone, so that a key does not cost the whole text.
    void take(LineWords &lines, const ardiphon::LEditOCX &editor,
              const ardiphon::TextChange &change)
    {
        const auto first = lines.begin() + change.line - 1;
        const auto end = first + change.linesRemoved;
        m_total -= std::accumulate(first, end, 0);
        const auto added = lines.insert(lines.erase(first, end), change.linesAdded, 0);
        for (int i = 0; i < change.linesAdded; ++i) {
            const QString line = editor.LineText(change.line + i).simplified();
            added[i] = int(line.split(u' ', Qt::SkipEmptyParts).size());
            m_total += added[i];
        }
        m_label->setText(QStringLiteral("%1 words").arg(m_total));
    }

    QLabel *m_label = nullptr;
    std::list<LineWords> m_texts;
    int m_total = 0;
};
