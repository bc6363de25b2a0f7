#pragma once

#include "printing/PrintPage.h"

namespace ardiphon {

class Printer;
struct PrintText;

/// Prints \a box as one job. Each page has a header with the name of the document and the number of
/// the page, counted from 1, a rule below it, and the text within the margins. Prints nothing when
/// the margins leave no room; a printer that fails ends the job.
void PrintRichText(Printer &printer, const PrintText &box, const PrintMargins &margins,
                   const QString &documentPath);

} // namespace ardiphon
