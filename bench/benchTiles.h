#pragma once
// Tiles and the memcpy reference shared by the benchmark programs.

#include <orn/pluginAPI/ixTile.h>

#include <benchmark/benchmark.h>

namespace OrnBench {

constexpr int WIDTH = 4096;
constexpr int HEIGHT = 2160;

// A 4096x2160 tile of the given format, filled with a deterministic pattern of values in [0, 1].
Orn::IxTile makeTile(Orn::IxPixelFormat const& format);

// Copies nbBytes between two buffers per iteration: the throughput to compare operators with.
void runMemcpy(benchmark::State& state, std::size_t nbBytes);

}  // namespace OrnBench
