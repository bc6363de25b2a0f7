#include "help/ui/FormAbout.h"

#include "app/ui/OkRow.h"

#include <QLabel>
#include <QVBoxLayout>

namespace ardiphon {

FormAbout::FormAbout(const QString &opcodeHelpVersion, QWidget *owner) : QDialog(owner)
{
    setObjectName(QStringLiteral("FormAbout"));
    setWindowTitle(QStringLiteral("About Ardiphon"));
    setModal(true);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 16);
    layout->setSpacing(10);

    QLabel *const title = addLabel(QStringLiteral("Label1"), QStringLiteral("ArdiphonPro"));
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    large.setBold(true);
    title->setFont(large);
    addLabel(QStringLiteral("Label8"), QStringLiteral("Version " ARDIPHON_VERSION));
    addLabel(QStringLiteral("lbl_Aggiornamento"),
             QStringLiteral("Opcode On-Line Help Version ") + opcodeHelpVersion);
    addLabel(QStringLiteral("Label2"),
             QStringLiteral("An editor for orchestras and scores in the Csound language."));
    addLabel(QStringLiteral("Label3"),
             QStringLiteral("Free software under the GNU General Public License, version 3 or any "
                            "later one (GPL-3.0-or-later). It comes without any warranty."));
    addLabel(
        QStringLiteral("Label4"),
        QStringLiteral("Made with Qt and QScintilla. Sound is made by Csound, a program of its "
                       "own that is started from here and is no part of this one."));

    layout->addStretch();
    layout->addLayout(newOkRow(*this));

    const int width = 440;
    setFixedSize(width, layout->totalHeightForWidth(width));
}

QLabel *FormAbout::addLabel(const QString &name, const QString &text)
{
    auto *const label = new QLabel(text, this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout()->addWidget(label);
    return label;
}

} // namespace ardiphon
