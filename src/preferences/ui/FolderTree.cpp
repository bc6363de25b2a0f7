#include "preferences/ui/FolderTree.h"

#include <QDir>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>

namespace ardiphon {

namespace {

constexpr int PathRole = Qt::UserRole;
constexpr int ReadRole = Qt::UserRole + 1;
constexpr int SliceTime = 4; // milliseconds

QString pathOf(const QTreeWidgetItem &item) { return item.data(0, PathRole).toString(); }

QString pathIn(const QString &folder, const QString &name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

QStringList namesOfChildren(const QTreeWidgetItem &item)
{
    QStringList names;
    for (int i = 0; i < item.childCount(); ++i)
        names.append(item.child(i)->text(0));
    return names;
}

} // namespace

FolderTree::FolderTree(QWidget *parent)
    : QTreeWidget(parent), m_icon(style()->standardIcon(QStyle::SP_DirIcon))
{
    setHeaderHidden(true);
    setIndentation(14);
    setUniformRowHeights(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    for (const QFileInfo &drive : QDir::drives())
        addTopLevelItem(newFolder(drive.absoluteFilePath(), drive.absoluteFilePath()));
    connect(this, &QTreeWidget::itemExpanded, this, &FolderTree::readFolder);
    connect(this, &QTreeWidget::currentItemChanged, this, [this] { emit pathChanged(path()); });
    connect(&m_slices, &QTimer::timeout, this, &FolderTree::readSlice);
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this,
            [this] { m_keepCentered = false; });
}

QString FolderTree::path() const { return currentItem() ? pathOf(*currentItem()) : QString(); }

bool FolderTree::setPath(const QString &path)
{
    if (path.isEmpty() || !QFileInfo(path).isDir())
        return false;
    const QString wanted = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem *item = topLevelItem(i);
        const QString drive = pathOf(*item);
        if (!wanted.startsWith(drive))
            continue;
        for (const QString &name : wanted.mid(drive.size()).split(u'/', Qt::SkipEmptyParts))
            item = childNamed(item, name);
        setCurrentItem(item);
        item->setExpanded(true);
        m_keepCentered = true;
        centerCurrent();
        return true;
    }
    return false;
}

void FolderTree::keyPressEvent(QKeyEvent *event)
{
    m_keepCentered = false;
    // The toolkit would open every folder below, endlessly where links form circles.
    if (event->key() != Qt::Key_Asterisk)
        QTreeWidget::keyPressEvent(event);
}

void FolderTree::mousePressEvent(QMouseEvent *event)
{
    m_keepCentered = false;
    QTreeWidget::mousePressEvent(event);
}

void FolderTree::showEvent(QShowEvent *event)
{
    QTreeWidget::showEvent(event);
    centerCurrent(); // only now the size is known
}

void FolderTree::centerCurrent()
{
    if (currentItem())
        scrollToItem(currentItem(), QAbstractItemView::PositionAtCenter);
}

QTreeWidgetItem *FolderTree::newFolder(const QString &path, const QString &name) const
{
    auto *const item = new QTreeWidgetItem(QStringList{name});
    item->setData(0, PathRole, path);
    item->setIcon(0, m_icon);
    item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    return item;
}

void FolderTree::readFolder(QTreeWidgetItem *item)
{
    if (item->data(0, ReadRole).toBool())
        return;
    item->setData(0, ReadRole, true);
    m_readings.push_back({item, FolderReader(pathOf(*item))});
    if (m_readings.size() == 1)
        readSlice(); // mostly it is the only one
}

/// Folders are read one after the other, in the order in which they were opened.
void FolderTree::readSlice()
{
    Reading &reading = m_readings.front();
    if (reading.reader.readOn(SliceTime)) {
        reading.item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
        fill(*reading.item, reading.reader.names());
        m_readings.pop_front();
        if (m_keepCentered)
            centerCurrent();
    }
    if (m_readings.empty())
        m_slices.stop();
    else
        m_slices.start(0);
}

/// Adds the folders among those that are there already, which are in order.
void FolderTree::fill(QTreeWidgetItem &item, const QStringList &names) const
{
    const QString path = pathOf(item);
    const QStringList present = namesOfChildren(item);
    QList<QTreeWidgetItem *> added;
    int place = 0;
    const auto insertAdded = [&] {
        item.insertChildren(place, added);
        place += int(added.size());
        added.clear();
    };
    for (const QString &name : names) {
        if (!present.contains(name)) {
            added.append(newFolder(pathIn(path, name), name));
            continue;
        }
        while (item.child(place)->text(0) != name) // past hidden ones
            ++place;
        insertAdded();
        ++place;
    }
    insertAdded();
}

bool FolderTree::isBeingRead(const QTreeWidgetItem &item) const
{
    return std::any_of(m_readings.begin(), m_readings.end(),
                       [&item](const Reading &reading) { return reading.item == &item; });
}

QTreeWidgetItem *FolderTree::childNamed(QTreeWidgetItem *parent, const QString &name)
{
    readFolder(parent);
    const QStringList present = namesOfChildren(*parent);
    qsizetype place = present.indexOf(name);
    if (place < 0) {
        // It is not read yet; or it is hidden, and so not offered, but was chosen elsewhere.
        const auto before = [&](const QString &each) { return folderNameLess(each, name); };
        place = isBeingRead(*parent)
                    ? std::find_if_not(present.begin(), present.end(), before) - present.begin()
                    : present.size();
        parent->insertChild(int(place), newFolder(pathIn(pathOf(*parent), name), name));
    }
    return parent->child(int(place));
}

} // namespace ardiphon
