#include "startup/about_form.h"

#include <string>

namespace quillon::startup {

FrmAbout::FrmAbout(std::string_view version) {
    form.SetTitle("About Taxonomic Quillon");
    lblVersion.SetCaption("Taxonomic Quillon Version " + std::string(version) + " (SR6)");
    cmdOK.OnClick([this] { form.Close(); });
}

}  // namespace quillon::startup
