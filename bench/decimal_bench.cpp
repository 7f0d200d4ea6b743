// What a number costs on its way into a text and back, beside the standard library and the toolkit.
//
//   cmake --preset release -DORR_BENCH=ON && cmake --build --preset release --target decimal_bench
//   build/release/bench/decimal_bench
#include "graph/decimal.h"

#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <cmath>
#include <random>
#include <vector>

using namespace ORR::Graph;

namespace {

constexpr int significantDigits = 6;

// Coordinates as drawings have them: 0.001 to 10,000, one in four whole.
std::vector<double> coordinates()
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> exponent(-3.0, 4.0);
    std::vector<double> values(4096);
    for (size_t i = 0; i < values.size(); ++i) {
        const double value = std::pow(10.0, exponent(random));
        values[i] = i % 4 == 0 ? std::floor(value) : value;
    }
    return values;
}

template <typename Convert>
void forEachCoordinate(benchmark::State &state, Convert convert)
{
    const std::vector<double> values = coordinates();
    for ([[maybe_unused]] auto _ : state) {
        for (const double value : values)
            benchmark::DoNotOptimize(convert(value));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<qint64>(values.size()));
}

template <typename Convert>
void forEachText(benchmark::State &state, Convert convert)
{
    std::vector<QByteArray> texts;
    for (const double value : coordinates())
        texts.push_back(QByteArray::number(value, 'g', significantDigits));
    for ([[maybe_unused]] auto _ : state) {
        for (const QByteArray &text : texts)
            benchmark::DoNotOptimize(convert(text));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<qint64>(texts.size()));
}

void writeOurs(benchmark::State &state)
{
    std::array<char, longestNumber> text;
    forEachCoordinate(state, [&](double value) { return writeNumber(text.data(), value); });
}

void writeStandard(benchmark::State &state)
{
    std::array<char, longestNumber> text;
    forEachCoordinate(state, [&](double value) {
        return std::to_chars(text.begin(), text.end(), value, std::chars_format::general,
                             significantDigits)
            .ptr;
    });
}

void writeToolkit(benchmark::State &state)
{
    forEachCoordinate(
        state, [](double value) { return QByteArray::number(value, 'g', significantDigits); });
}

void textOurs(benchmark::State &state)
{
    forEachCoordinate(state, numberText);
}

void textToolkit(benchmark::State &state)
{
    forEachCoordinate(state,
                      [](double value) { return QString::number(value, 'g', significantDigits); });
}

void readOurs(benchmark::State &state)
{
    forEachText(state, [](const QByteArray &text) { return numberFrom(QByteArrayView(text)); });
}

void readStandard(benchmark::State &state)
{
    forEachText(state, [](const QByteArray &text) {
        double value = 0.0;
        std::from_chars(text.begin(), text.end(), value);
        return value;
    });
}

void readToolkit(benchmark::State &state)
{
    forEachText(state, [](const QByteArray &text) { return text.toDouble(); });
}

void throughTextOurs(benchmark::State &state)
{
    forEachCoordinate(state, numberThroughText);
}

} // namespace

BENCHMARK(writeOurs);
BENCHMARK(writeStandard);
BENCHMARK(writeToolkit);
BENCHMARK(textOurs);
BENCHMARK(textToolkit);
BENCHMARK(readOurs);
BENCHMARK(readStandard);
BENCHMARK(readToolkit);
BENCHMARK(throughTextOurs);

BENCHMARK_MAIN();
