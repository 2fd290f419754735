#include <gmock/gmock.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

/// A parameter that is printed by its bytes has pointers in its test's name, which then differs in every run.
bool PrintsEveryParameter() {
  constexpr std::string_view kBytes = "-byte object <";
  bool isPrinted = true;
  const testing::UnitTest& all = *testing::UnitTest::GetInstance();
  for (int i = 0; i < all.total_test_suite_count(); ++i) {
    const testing::TestSuite& suite = *all.GetTestSuite(i);
    for (int j = 0; j < suite.total_test_count(); ++j) {
      const char* const parameter = suite.GetTestInfo(j)->value_param();
      if (parameter == nullptr || std::string_view(parameter).find(kBytes) == std::string_view::npos)
        continue;
      std::fprintf(stderr, "%s.%s: its parameter needs a PrintTo\n", suite.name(),
                   suite.GetTestInfo(j)->name());
      isPrinted = false;
    }
  }
  return isPrinted;
}

}  // namespace

/// The main program of every test: VANZET_TEST_LOCALE names the locale to run under. No test opens a window
/// on the screen of the person who runs it.
int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) unsetenv(display);
  if (const char* locale = std::getenv("VANZET_TEST_LOCALE")) {
    if (std::setlocale(LC_ALL, locale) == nullptr) {
      std::fprintf(stderr, "the locale %s does not exist\n", locale);
      return 1;
    }
  }
  if (!PrintsEveryParameter()) return 1;
  return RUN_ALL_TESTS();
}
