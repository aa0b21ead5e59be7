#include <gtest/gtest.h>
#include <chrono>
#include <iostream>
#include "tests/faults/road.h"
TEST(Time, Road) {
  std::size_t n = 0;
  auto t0 = std::chrono::steady_clock::now();
  for (int i = 0; i < 10; ++i) {
    faults::Road road;
    road.desk.files.FailAt(0);
    std::string last;
    if (i == 0)
      road.desk.files.onOperation = [&](const std::string& name) {
        if (name.find("ZVL.") != std::string::npos) return;
        auto lines = road.desk.LogLines();
        std::cout << road.Step() << " | " << (lines.empty() ? "" : lines.back().substr(0, 40))
                  << " | " << name.substr(0, 12) << ".."
                  << name.substr(name.size() > 40 ? name.size() - 40 : 0) << "\n";
      };
    std::string step; auto s0 = std::chrono::steady_clock::now(); std::size_t ops=0;
    if (i == 5) road.desk.files.onOperation = [&](const std::string&) { auto now = std::chrono::steady_clock::now(); if (road.Step()!=step) { std::cout << step << " " << ops << " ops " << std::chrono::duration<double, std::milli>(now - s0).count() << "\n"; s0=now; step=road.Step(); ops=0;} ++ops; };
    auto c0 = std::chrono::steady_clock::now();
    const bool ok = road.Go(1);
    if (i==5) std::cout << "go " << std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - c0).count() << "\n";
    EXPECT_TRUE(ok) << road.Step();
    n = road.desk.files.Operations();
    if (i == 0)
      for (auto& b : road.desk.robot.TakeBoxes()) std::cout << b.text.toStdString() << "\n";
    if (!ok) break;
    if (i == 0) {
      for (auto l : road.desk.LogLines()) std::cout << l << "\n";
      t0 = std::chrono::steady_clock::now();
    }
  }
  std::cout
      << n << " operations, "
      << std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count() /
             9
      << " ms a road\n";
}
