#include "support/english.h"

#include <stdexcept>

#include "settings/lang.h"

namespace kovra::test {

void LoadEnglish() {
    if (!aurel::LoadLanguageFile(KOVRA_DATA "/Lang/English.txt")) {
        throw std::runtime_error("cannot read " KOVRA_DATA "/Lang/English.txt");
    }
}

}  // namespace kovra::test
