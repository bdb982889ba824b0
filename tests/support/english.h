#pragma once
// Loads the shipped English language file, so that tests see the words a user sees.

namespace kovra::test {

void LoadEnglish();

}  // namespace kovra::test
