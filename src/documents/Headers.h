#pragma once

#include <QString>

#include <span>

namespace ardiphon {

/// A ready-made orchestra header.
struct Header
{
    const char *name; ///< the command that inserts it
    const char *caption;
    int sampleRate;
    int channels;
};

/// The nine headers, in the order of their menu.
std::span<const Header> headers();

/// The text of a header; its control rate is a tenth of its sample rate. Line ends are CR LF.
QString headerText(const Header &header);

/// The text of a CSD with empty sections. Line ends are CR LF.
QString csdTemplate();

} // namespace ardiphon
