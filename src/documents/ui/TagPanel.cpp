#include "documents/ui/TagPanel.h"

#include "app/ui/ToolTip.h"
#include "language/editor/LEditOCX.h"
#include "navigation/SearchRules.h"
#include "navigation/ui/EditorSearch.h"

#include <QListWidget>
#include <QTreeWidget>

#include <algorithm>

namespace ardiphon {

namespace {

const QString Missing = QStringLiteral("...");

} // namespace

TagPanel::TagPanel(LEditOCX &editor, QTreeWidget &tree, QListWidget &list, const QStringList &words)
    : QObject(&editor), m_editor(editor), m_tree(tree), m_list(list), m_words(words)
{
    for (const QString &word : m_words.mid(1)) {
        auto *node = new QTreeWidgetItem(&m_tree, {Missing});
        node->setForeground(0, QColor(0, 0, 255));
        m_list.addItem(word);
        m_list.item(m_list.count() - 1)->setToolTip(plainToolTip(word));
    }
    connect(&m_tree, &QTreeWidget::itemClicked, this,
            [this](const QTreeWidgetItem *node) { goTo(node->text(0)); });
    connect(&m_list, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem *item) { insertWord(item->text()); });
    connect(&m_editor, &LEditOCX::textChanged, this, &TagPanel::lookAgain);
    lookAgain();
}

void TagPanel::lookAgain()
{
    m_left = std::max<qsizetype>(m_words.size() - 1, 0);
    emit refreshRequested();
}

bool TagPanel::refreshNext()
{
    if (m_left == 0)
        return false;
    --m_left;
    m_index = m_index + 1 < m_words.size() ? m_index + 1 : 1;
    const QString &word = m_words[m_index];
    QTreeWidgetItem *node = m_tree.topLevelItem(int(m_index - 1));
    const bool occurs = m_editor.Contains(word);
    if (!occurs && isShown(word))
        node->setText(0, Missing);
    else if (occurs && !isShown(word))
        node->setText(0, word);
    return m_left > 0;
}

bool TagPanel::isShown(const QString &word) const
{
    return !m_tree.findItems(word, Qt::MatchExactly | Qt::MatchCaseSensitive).isEmpty();
}

void TagPanel::clear()
{
    for (int i = 0; i < m_tree.topLevelItemCount(); ++i)
        m_tree.topLevelItem(i)->setText(0, Missing);
    lookAgain();
}

void TagPanel::goTo(const QString &word)
{
    if (word != Missing) {
        findFirst(m_editor, word, FindDirection::UpDown, true);
        m_editor.SetFindWholeWord(false);
    }
    m_editor.setFocus();
}

void TagPanel::insertWord(const QString &word)
{
    if (!m_editor.Contains(word)) {
        if (m_editor.SelectionLength() > 0)
            m_editor.SetSelText(QString());
        m_editor.SetSelText(word + QStringLiteral("\r\n"));
        m_list.setCurrentItem(nullptr);
        emit inserted();
    }
    m_editor.setFocus();
}

} // namespace ardiphon
