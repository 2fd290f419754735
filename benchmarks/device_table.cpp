// The window's page of the catalogue with 100,000 devices: CPU time of what a person does there, from the
// call to the picture, least of five. Reading the catalogue is not in it: that is shop_catalogue_benchmark's.
// QT_QPA_PLATFORM=offscreen build/dev/bin/device_table_benchmark

#include <QApplication>
#include <QHeaderView>
#include <QTableView>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>

#include "devices/kinds.h"
#include "window/catalogue/catalogue_page.h"

namespace {

using namespace vanzet;

constexpr int kDevices = 100'000, kRuns = 5;

catalogue::Shop LargeShop() {
  std::string text;
  for (int i = 0; i < kDevices; ++i) {
    DeviceParams params = devices::Find(1 + i % 14)->example;
    params.A += 0.001 * i;
    text += "Device " + std::to_string(i * 7919 % kDevices) + "\n" + catalogue::ValueLineOf(params) + "\n";
  }
  return catalogue::ShopOfText(text, "benchmark");
}

double Milliseconds(const std::function<void()>& work) {
  const std::clock_t start = std::clock();
  work();
  return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// Prints the least time that `work` takes with the picture after it; `prepare` is not measured.
void Print(const char* name, window::CataloguePage& page, const std::function<void()>& prepare,
           const std::function<void()>& work) {
  double least = 1e9;
  for (int i = 0; i < kRuns; ++i) {
    prepare();
    page.grab();
    least = std::min(least, Milliseconds([&] {
                       work();
                       QCoreApplication::processEvents();
                       page.grab();
                     }));
  }
  std::printf("%-28s %6.1f ms\n", name, least);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const window::Texts texts(".");
  window::CataloguePage page(texts);
  page.resize(1400, 900);
  page.show();
  const catalogue::Shop shop = LargeShop();
  catalogue::Shop next;
  const auto nothing = [] {};
  const auto copy = [&] { next = shop; };
  const auto show = [&] { page.Show(std::move(next), LengthUnit::kMillimetre); };
  const auto sortBy = [&](int column) { page.table().sortByColumn(column, Qt::AscendingOrder); };
  Print("draw again", page, nothing, nothing);
  Print(
      "open", page, [&] { next = {}, show(), copy(); }, show);
  Print("the same after a change", page, copy, show);
  Print(
      "filter by words", page, [&] { page.Find(""); }, [&] { page.Find("device 9999"); });
  Print(
      "filter by a range", page, [&] { page.Find(""); }, [&] { page.Find("A=70..90"); });
  page.Find("");
  Print(
      "sort by name", page, [&] { sortBy(-1); }, [&] { sortBy(window::DeviceModel::kName); });
  Print(
      "sort by a letter", page, [&] { sortBy(-1); }, [&] { sortBy(window::DeviceModel::kFirstLetter); });
  return 0;
}
