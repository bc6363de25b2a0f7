#pragma once

#include "analysis/ui/ToolForm.h"
#include "language/DocumentText.h"

class QPlainTextEdit;

namespace ardiphon {

/// The reader of phase vocoder files. It starts no tool: analyzing shows the listing that some
/// process has left as `pv_temp.txt` in the program's folder, once, whatever is in the fields.
class FormPVLook : public ToolForm
{
    Q_OBJECT

public:
    FormPVLook(const ToolContext &context, QWidget *owner);

protected:
    void takeInput(const QString &path) override;
    void run() override;

private:
    void showListing(const QString &path);
    void saveListing();

    QPlainTextEdit *RtfPVLook;
    DocumentForm m_form; ///< of the listing's bytes
};

} // namespace ardiphon
