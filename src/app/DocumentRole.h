#pragma once

namespace ardiphon {

/// What a document is: a piece in one file, or one of the two files of a project.
enum class DocumentRole { Csd, Orchestra, Score };

} // namespace ardiphon
