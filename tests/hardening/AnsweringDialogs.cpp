#include "hardening/AnsweringDialogs.h"

#include "platform/ui/Printer.h"

#include <QPrinter>

using namespace ardiphon;

Answer AnsweringDialogs::message(const Message &message)
{
    if (message.buttons == MessageButtons::Ok)
        return Answer::Ok;
    if (message.buttons == MessageButtons::OkCancel)
        return cancels() ? Answer::Cancel : Answer::Ok;
    if (m_ending)
        return Answer::No;
    const int last = message.buttons == MessageButtons::YesNoCancel ? 3 : 2;
    constexpr Answer answers[] = {Answer::Yes, Answer::No, Answer::Cancel};
    return answers[m_dice.roll(last)];
}

std::optional<QString> AnsweringDialogs::openFile(const FileQuestion &)
{
    if (cancels())
        return std::nullopt;
    return m_playground.openable();
}

std::optional<QString> AnsweringDialogs::saveFile(const FileQuestion &)
{
    if (cancels())
        return std::nullopt;
    return m_playground.savable();
}

std::optional<Color> AnsweringDialogs::color(Color first)
{
    if (cancels())
        return std::nullopt;
    return m_dice.chance(20) ? first : Color{std::uint32_t(m_dice.roll(0x1000000))};
}

std::optional<PrintChoice> AnsweringDialogs::choosePrinter(const PrintQuestion &question)
{
    if (cancels())
        return std::nullopt;
    auto printer = std::make_unique<QPrinter>();
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(m_playground.printable());
    printer->setResolution(m_dice.chance(50) ? 72 : 600);
    printer->setPageSize(QPageSize(m_dice.chance(70) ? QPageSize::A4 : QPageSize::A8));
    return PrintChoice{std::make_shared<Printer>(std::move(printer)),
                       question.hasSelection && m_dice.chance(50)};
}
