#include "cli/image_options.h"

#include "images/vyl_lib.h"

namespace kovra::cli {

ImageLibrary::ImageLibrary() {
    VylLibInit();
}

ImageLibrary::~ImageLibrary() {
    VylLibExit();
}

void AddColorKeyOption(CLI::App& app, bool& convert) {
    app.add_option_function<std::string>(
           "--colorkey", [&convert](const std::string& answer) { convert = answer == "yes"; },
           "turn a background colour into alpha when an image has no alpha of its own (default no)")
        ->type_name("yes|no")
        ->check(CLI::IsMember({"yes", "no"}));
}

}  // namespace kovra::cli
