// A document window of a session without preview: the editor alone.
#pragma once

#include "shell/document_window.h"

namespace vellum {

class Form26 : public DocumentWindow {
    Q_OBJECT
public:
    explicit Form26(Workbench& workbench, QWidget* parent = nullptr);

protected:
    void LayOut() override;
};

}  // namespace vellum
