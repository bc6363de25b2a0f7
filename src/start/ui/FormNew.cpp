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
    setChoice(QString());

    auto *const body = new QHBoxLayout;
    body->setContentsMargins(16, 18, 16, 18);
    body->addLayout(addDocumentPictures([this] { closeWith(QStringLiteral("NEWCSD")); },
                                        [this] { closeWith(QStringLiteral("NEWORCSCO")); }));

    PictureButton *const picChiudi = addPicture(Picture::Close, QStringLiteral("picChiudi"),
                                                QStringLiteral("Exit"), [this] { close(); });
    picChiudi->setToolTip(QStringLiteral("Exit"));
    addKey(Qt::Key_Escape, [this] { close(); });
    layOut(new QLabel(windowTitle(), this), {picChiudi}, body);
    if (owner)
        centerIn(owner->window()->frameGeometry());
}

QString FormNew::choose(ConfigurationBlock &config, QWidget *owner)
{
    FormNew chooser(config, owner);
    chooser.exec();
    return chooser.m_choice;
}

void FormNew::setChoice(const QString &choice)
{
    m_choice = choice;
    m_config.NewDocumentChoice = choice;
}

void FormNew::closeWith(const QString &choice)
{
    setChoice(choice);
    close();
}

} // namespace ardiphon
