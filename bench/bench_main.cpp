// SPDX-License-Identifier: GPL-3.0-or-later
// The comparison and the photo; bench/measure runs them and the other measurements in one command. Options of Google
// Benchmark work as usual, such as --benchmark_filter=...
#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <string>
#include <vector>

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  // Ratios stand in columns: that is the table one wants to read. Given first, so that an option of the user wins.
  std::string tableau = "--benchmark_counters_tabular=true";
  std::vector<char*> options{argv[0], tableau.data()};
  options.insert(options.end(), argv + 1, argv + argc);
  int nombre = static_cast<int>(options.size());
  benchmark::Initialize(&nombre, options.data());
  if (benchmark::ReportUnrecognizedArguments(nombre, options.data())) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
