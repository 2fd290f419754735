#include <gmock/gmock.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>

/// The main program of every test: VANZET_TEST_LOCALE names the locale to run under. No test opens a window
/// on the screen of whoever runs it.
int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) unsetenv(display);
  if (const char* locale = std::getenv("VANZET_TEST_LOCALE")) {
    if (std::setlocale(LC_ALL, locale) == nullptr) {
      std::fprintf(stderr, "the locale %s is not there\n", locale);
      return 1;
    }
  }
  return RUN_ALL_TESTS();
}
