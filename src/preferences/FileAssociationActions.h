#pragma once

#include <functional>

namespace ardiphon {

/// What the settings do about file associations: each tells its user what came of it. Where one is
/// missing, its button can't be pressed.
struct FileAssociationActions
{
    std::function<void()> associate;
    std::function<void()> remove;
};

} // namespace ardiphon
