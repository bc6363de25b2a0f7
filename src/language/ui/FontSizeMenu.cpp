#include "language/ui/FontSizeMenu.h"

#include "app/ConfigurationBlock.h"
#include "app/Numbers.h"

#include <QAction>

namespace ardiphon {

FontSizeMenu::FontSizeMenu(ConfigurationBlock &config, QObject *parent)
    : QObject(parent), m_config(config)
{
    for (int size = Smallest; size <= Largest; ++size) {
        auto *entry = new QAction(QString::number(size), this);
        entry->setObjectName(QStringLiteral("menuFontSize(%1)").arg(size - Smallest));
        entry->setCheckable(true);
        connect(entry, &QAction::triggered, this, [this, size] { choose(size); });
        m_entries.append(entry);
    }
    check(int(leadingNumber(config.DefaultFontSize)));
}

void FontSizeMenu::stepDown()
{
    if (m_config.FontSize > Smallest)
        choose(m_config.FontSize - 1);
    else
        m_config.FontSize = Smallest;
}

void FontSizeMenu::stepUp()
{
    if (m_config.FontSize < Largest)
        choose(m_config.FontSize + 1);
    else
        m_config.FontSize = Largest;
}

void FontSizeMenu::choose(int size)
{
    m_config.FontSize = std::int16_t(size);
    check(size);
    emit chosen();
}

void FontSizeMenu::check(int size)
{
    for (QAction *entry : m_entries)
        entry->setChecked(entry->text().toInt() == size);
}

} // namespace ardiphon
