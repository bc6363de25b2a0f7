#include "start/ui/FormNew.h"

#include "app/ConfigurationBlock.h"
#include "start/ui/PictureButton.h"

#include <QHBoxLayout>
#include <QLabel>

namespace ardiphon {

FormNew::FormNew(ConfigurationBlock &config, QWidget *owner)
    : ChooserWindow(QStringLiteral("New"), owner, Qt::Dialog), m_config(config)
{
    setObjectName(QStringLiteral("FormNew"));
    setModal(true);
    m_config.NewDocumentChoice.clear();

    auto *const body = new QHBoxLayout;
    body->setContentsMargins(16, 18, 16, 18);
    body->addLayout(addDocumentPictures([this] { choose(QStringLiteral("NEWCSD")); },
                                        [this] { choose(QStringLiteral("NEWORCSCO")); }));

    PictureButton *const picChiudi = addPicture(Picture::Close, QStringLiteral("picChiudi"),
                                                QStringLiteral("Exit"), [this] { close(); });
    picChiudi->setToolTip(QStringLiteral("Exit"));
    addKey(Qt::Key_Escape, [this] { close(); });
    layOut(new QLabel(windowTitle(), this), {picChiudi}, body);
    if (owner)
        centerIn(owner->window()->frameGeometry());
}

void FormNew::showModal(ConfigurationBlock &config, QWidget *owner)
{
    FormNew chooser(config, owner);
    chooser.exec();
}

void FormNew::choose(const QString &choice)
{
    m_config.NewDocumentChoice = choice;
    close();
}

} // namespace ardiphon
