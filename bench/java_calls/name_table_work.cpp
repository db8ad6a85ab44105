// SPDX-License-Identifier: MIT
// The package name of a model, from tables of different size, beside reading the file alone.
#include <fcntl.h>
#include <sys/stat.h>
#include <tinyxml2.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include "bench/support/measured.h"
#include "bench/support/workstation.h"

namespace {

std::string tablePath() {
  return std::string(std::getenv("L5KOV_COMMON_APPDATA")) +
         "/ORVA/Lumora5/Data/Profile/KovMonitorName.xml";
}

// Ten models a package; the one in the middle is the colour monitor's.
void writeTable(std::int64_t models) {
  std::ofstream file(tablePath());
  file << "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<KovMonitorName>\n";
  for (std::int64_t first = 0; first < models; first += 10) {
    file << "  <PackageInfo>\n    <PackageName>package" << first << "</PackageName>\n";
    for (std::int64_t i = first; i < first + 10 && i < models; ++i) {
      const std::string model = i == models / 2 ? bench::kModel : "OR-Y" + std::to_string(i);
      file << "    <ModelInfo>\n      <ModelName>" << model << "</ModelName>\n    </ModelInfo>\n";
    }
    file << "  </PackageInfo>\n";
  }
  file << "</KovMonitorName>\n";
}

void packageName(benchmark::State& state) {
  const lumora::Monitor& monitor = bench::colourMonitor();
  writeTable(state.range(0));
  bench::measure(state, [&] { return monitor.getPackageName(); });
  if (monitor.getPackageName().find("package") != 0) state.SkipWithError("not found");
}

void loadFile(benchmark::State& state) {
  writeTable(state.range(0));
  const std::string path = tablePath();
  bench::measure(state, [&] {
    tinyxml2::XMLDocument document;
    return document.LoadFile(path.c_str());
  });
}

// As the library reads it: four calls of the system.
std::unique_ptr<char[]> contentOf(const char* path, std::size_t& size) {
  const int file = ::open(path, O_RDONLY | O_CLOEXEC);
  struct stat status = {};
  ::fstat(file, &status);
  size = static_cast<std::size_t>(status.st_size);
  auto content = std::make_unique_for_overwrite<char[]>(size);
  if (::read(file, content.get(), size) != status.st_size) size = 0;
  ::close(file);
  return content;
}

// Reading and parsing without asking for the model, composing the path and walking the document.
void readAndParse(benchmark::State& state) {
  writeTable(state.range(0));
  const std::string path = tablePath();
  bench::measure(state, [&] {
    std::size_t size = 0;
    const auto content = contentOf(path.c_str(), size);
    tinyxml2::XMLDocument document;
    return document.Parse(content.get(), size);
  });
}

}  // namespace

BENCHMARK(packageName)->Name("package_name/library")->Arg(20)->Arg(1000)->Arg(10000);
BENCHMARK(loadFile)->Name("package_name/raw")->Arg(20)->Arg(1000)->Arg(10000);
BENCHMARK(readAndParse)->Name("package_name/read_and_parse")->Arg(20)->Arg(1000)->Arg(10000);
