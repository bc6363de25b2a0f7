#pragma once

#include "compile/ui/CompileContext.h"

namespace ardiphon {

class LEditOCX;

// What the compile commands of the editor windows do: each checks whether the saved documents can
// be handed to its compiler, says why not, or shows its dialog over the window until that is
// closed.

/// Opens FormCSoundCSD for the CSD in \a editor.
void launchCsdCompile(const CompileContext &context, LEditOCX &editor);
/// Has no dialog: starts Winsound at once, after one question.
void launchCsdWinsound(const CompileContext &context, const LEditOCX &editor);
/// FormCSoundAV.
void launchCsdCSoundAV(const CompileContext &context, const LEditOCX &editor);

/// The documents of a project.
struct ProjectEditors
{
    LEditOCX &orchestra;
    LEditOCX &score;
};

/// FormCSound.
void launchProjectCompile(const CompileContext &context, const ProjectEditors &editors);
/// FormWinsound.
void launchProjectWinsound(const CompileContext &context, const ProjectEditors &editors);
/// FormCSoundAVORC.
void launchProjectCSoundAV(const CompileContext &context, const ProjectEditors &editors);

} // namespace ardiphon
