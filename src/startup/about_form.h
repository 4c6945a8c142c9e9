// FrmAbout, the box of Help, About: texts and a button that closes it.
#pragma once

#include <string_view>

#include "core/controls.h"

namespace quillon::startup {

struct FrmAbout {
    Form form{"FrmAbout"};
    LabelControl lblTitle{form, "lblTitle", "Orvaline"};
    LabelControl lblVersion{form, "lblVersion"};
    LabelControl lblBuild{form, "lblBuild"};
    ButtonControl cmdOK{form, "cmdOK", "&OK"};

    // `version` is major.minor.revision.
    explicit FrmAbout(std::string_view version);
};

}  // namespace quillon::startup
