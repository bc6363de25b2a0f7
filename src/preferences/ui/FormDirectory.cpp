#include "preferences/ui/FormDirectory.h"

#include "app/ConfigurationBlock.h"
#include "app/ui/OkRow.h"
#include "app/ui/PathField.h"
#include "preferences/ui/FolderTree.h"

#include <QDir>
#include <QLabel>
#include <QVBoxLayout>

namespace ardiphon {

FormDirectory::FormDirectory(ConfigurationBlock &config, QWidget *owner)
    : QDialog(owner), m_config(config), Dir1(new FolderTree(this)), Text1(new PathField(this))
{
    setObjectName(QStringLiteral("FormDirectory"));
    setWindowTitle(QStringLiteral("Working Directory"));
    setModal(true);
    Dir1->setObjectName(QStringLiteral("Dir1"));
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setReadOnly(true);
    layOut();

    if (m_config.WorkingDirectory.isEmpty())
        m_config.WorkingDirectory = QDir::rootPath();
    // When the folder is missing, the tree stays at the current directory.
    if (!Dir1->setPath(m_config.WorkingDirectory))
        Dir1->setPath(QDir::currentPath());
    Text1->setText(m_config.WorkingDirectory);
    connect(Dir1, &FolderTree::pathChanged, this, [this](const QString &path) {
        m_config.WorkingDirectory = path;
        Text1->setText(path);
    });
}

void FormDirectory::layOut()
{
    auto *const label = new QLabel(QStringLiteral("Selected Directory:"), this);
    label->setObjectName(QStringLiteral("Label1"));
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(Dir1);
    layout->addWidget(label);
    layout->addWidget(Text1);
    layout->addLayout(newOkRow(*this));
    setFixedSize(380, 420);
}

} // namespace ardiphon
