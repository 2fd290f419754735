#include <gmock/gmock.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>

/// The main program of every test: VANZET_TEST_LOCALE names the locale to run under.
int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  if (const char* locale = std::getenv("VANZET_TEST_LOCALE")) {
    if (std::setlocale(LC_ALL, locale) == nullptr) {
      std::fprintf(stderr, "the locale %s is not there\n", locale);
      return 1;
    }
  }
  return RUN_ALL_TESTS();
}
