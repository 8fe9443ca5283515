// The string family beside what a C++ program would use instead: icu::UnicodeString and QString for
// texts, the standard library for reading numbers. Every group does the same work on the same data;
// the name of an alternative says what it omits.

#include "lib/strings/string_holder.h"
#include "lib/strings/tov_bytes.h"
#include "lib/strings/tov_format.h"
#include "lib/strings/tov_search.h"
#include "lib/strings/tov_string.h"

#ifdef PINORAMA_BENCH_QT
#include <QString>
#endif
#include <benchmark/benchmark.h>
#include <unicode/normlzr.h>
#include <unicode/unistr.h>

#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>

using namespace pinorama;

namespace {
using icu::UnicodeString;

// A page of text, as long as a picture's description may be.
std::string pageOf(std::string_view sentence)
{
    std::string page;
    while (page.size() < 8000) page += sentence;
    return page;
}

const std::string kASCIIPage = pageOf("The harbour seen from the old lighthouse, early morning. ");
const std::string kMixedPage =
    pageOf("Blick vom K\u00f6nigsstuhl \u00fcber die Stra\u00dfe, fr\u00fch. ");
constexpr const char* kPath = "/home/user/Pictures/2008/Summer/DSC_4711.NEF";
constexpr const char* kOtherPath = "/home/user/Pictures/2008/Summer/DSC_4712.NEF";
constexpr const char* kPathInOtherCase = "/HOME/user/pictures/2008/summer/dsc_4711.nef";
constexpr int kAppends = 1000;

StringHolder tov(std::string_view utf8)
{
    return StringHolder(TovStringFromUTF8(utf8.data(), static_cast<std::int32_t>(utf8.size())));
}

UnicodeString unicode(std::string_view utf8)
{
    return UnicodeString::fromUTF8(utf8);
}

// Appending many short texts to a growing one.
void appendTov(benchmark::State& state)
{
    const StringHolder word = tov("coordinates ");
    for (auto _ : state) {
        StringHolder text(TovStringCreateMutable());
        for (int i = 0; i < kAppends; i++) TovStringAppendTovString(text.slot(), word.get());
        benchmark::DoNotOptimize(text.get());
    }
}
BENCHMARK(appendTov)->Name("append text/tov");

void appendICU(benchmark::State& state)
{
    const UnicodeString word = unicode("coordinates ");
    for (auto _ : state) {
        UnicodeString text;
        for (int i = 0; i < kAppends; i++) text.append(word);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(appendICU)->Name("append text/icu::UnicodeString");

void appendCStringTov(benchmark::State& state)
{
    for (auto _ : state) {
        StringHolder text(TovStringCreateMutable());
        for (int i = 0; i < kAppends; i++) TovStringAppendCString(text.slot(), "coordinates ");
        benchmark::DoNotOptimize(text.get());
    }
}
BENCHMARK(appendCStringTov)->Name("append C string/tov");

void appendCStringICU(benchmark::State& state)
{
    for (auto _ : state) {
        UnicodeString text;
        for (int i = 0; i < kAppends; i++) text.append(UnicodeString("coordinates ", -1, US_INV));
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(appendCStringICU)->Name("append C string/icu::UnicodeString");

// Two paths that differ near their end, as when the selection moves.
void compareTov(benchmark::State& state, const char* a, const char* b, std::uint8_t caseFlag)
{
    const StringHolder first = tov(a), second = tov(b);
    for (auto _ : state) {
        benchmark::DoNotOptimize(TovStringCompare(first.get(), second.get(), caseFlag));
    }
}
BENCHMARK_CAPTURE(compareTov, path, kPath, kOtherPath, 1)->Name("compare/tov");
BENCHMARK_CAPTURE(compareTov, cased, kPath, kPathInOtherCase, 0)->Name("compare without case/tov");

void compareICU(benchmark::State& state, const char* a, const char* b, std::uint32_t options)
{
    const UnicodeString first = unicode(a), second = unicode(b);
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        benchmark::DoNotOptimize(
            icu::Normalizer::compare(first, second, options | U_COMPARE_CODE_POINT_ORDER, status));
    }
}
BENCHMARK_CAPTURE(compareICU, path, kPath, kOtherPath, 0)->Name("compare/icu::Normalizer");
BENCHMARK_CAPTURE(compareICU, cased, kPath, kPathInOtherCase, U_COMPARE_IGNORE_CASE)
    ->Name("compare without case/icu::Normalizer");

void compareUnitsICU(benchmark::State& state)
{
    const UnicodeString first = unicode(kPath), second = unicode(kOtherPath);
    for (auto _ : state) benchmark::DoNotOptimize(first.compare(second));
}
BENCHMARK(compareUnitsICU)->Name("compare/icu::UnicodeString, units only");

// A word that occurs only at the end of a page.
void searchTov(benchmark::State& state, const std::string& page, std::uint8_t caseFlag)
{
    const StringHolder text = tov(page + "the end"), word = tov("the end");
    for (auto _ : state) {
        benchmark::DoNotOptimize(TovStringPosition(text.get(), word.get(), 0, caseFlag));
    }
}
BENCHMARK_CAPTURE(searchTov, ascii, kASCIIPage, 1)->Name("search/tov");
BENCHMARK_CAPTURE(searchTov, mixed, kMixedPage, 1)->Name("search beyond ASCII/tov");
BENCHMARK_CAPTURE(searchTov, cased, kASCIIPage, 0)->Name("search without case/tov");

void searchICU(benchmark::State& state, const std::string& page)
{
    const UnicodeString text = unicode(page + "the end"), word = unicode("the end");
    for (auto _ : state) benchmark::DoNotOptimize(text.indexOf(word));
}
BENCHMARK_CAPTURE(searchICU, ascii, kASCIIPage)->Name("search/icu::UnicodeString, units only");
BENCHMARK_CAPTURE(searchICU, mixed, kMixedPage)
    ->Name("search beyond ASCII/icu::UnicodeString, units only");

void fromUTF8Tov(benchmark::State& state, const std::string& page)
{
    for (auto _ : state) benchmark::DoNotOptimize(tov(page));
}
BENCHMARK_CAPTURE(fromUTF8Tov, ascii, kASCIIPage)->Name("from UTF-8/tov");
BENCHMARK_CAPTURE(fromUTF8Tov, mixed, kMixedPage)->Name("from UTF-8 beyond ASCII/tov");

void fromUTF8ICU(benchmark::State& state, const std::string& page)
{
    for (auto _ : state) benchmark::DoNotOptimize(unicode(page));
}
BENCHMARK_CAPTURE(fromUTF8ICU, ascii, kASCIIPage)->Name("from UTF-8/icu::UnicodeString");
BENCHMARK_CAPTURE(fromUTF8ICU, mixed, kMixedPage)
    ->Name("from UTF-8 beyond ASCII/icu::UnicodeString");

void toUTF8Tov(benchmark::State& state, const std::string& page)
{
    const StringHolder text = tov(page);
    for (auto _ : state) {
        std::uint32_t size = TovStringGetUTF8Size(text.get());
        std::string bytes(size, '\0');
        TovStringCopyToUTF8(text.get(), bytes.data(), &size);
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK_CAPTURE(toUTF8Tov, ascii, kASCIIPage)->Name("to UTF-8/tov");
BENCHMARK_CAPTURE(toUTF8Tov, mixed, kMixedPage)->Name("to UTF-8 beyond ASCII/tov");

void toUTF8ICU(benchmark::State& state, const std::string& page)
{
    const UnicodeString text = unicode(page);
    for (auto _ : state) {
        std::string bytes;
        benchmark::DoNotOptimize(text.toUTF8String(bytes));
    }
}
BENCHMARK_CAPTURE(toUTF8ICU, ascii, kASCIIPage)->Name("to UTF-8/icu::UnicodeString");
BENCHMARK_CAPTURE(toUTF8ICU, mixed, kMixedPage)->Name("to UTF-8 beyond ASCII/icu::UnicodeString");

// Reading numbers out of texts, and out of bytes that the standard library takes.
constexpr std::string_view kInteger = "1234567 pictures";
constexpr std::string_view kDouble = "48.1234567 degrees";

void readIntegerTov(benchmark::State& state)
{
    const StringHolder text = tov(kInteger);
    for (auto _ : state) benchmark::DoNotOptimize(TovStringGetIntValue(text.get()));
}
BENCHMARK(readIntegerTov)->Name("read integer/tov");

void readDoubleTov(benchmark::State& state)
{
    const StringHolder text = tov(kDouble);
    for (auto _ : state) benchmark::DoNotOptimize(TovStringGetDoubleValue(text.get()));
}
BENCHMARK(readDoubleTov)->Name("read double/tov");

template <typename Value>
void readWithFromChars(benchmark::State& state, std::string_view text)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(text);
        Value value{};
        std::from_chars(text.data(), text.data() + text.size(), value);
        benchmark::DoNotOptimize(value);
    }
}
void readIntegerStd(benchmark::State& state)
{
    readWithFromChars<std::int32_t>(state, kInteger);
}
BENCHMARK(readIntegerStd)->Name("read integer/std::from_chars");

void readDoubleStd(benchmark::State& state)
{
    readWithFromChars<double>(state, kDouble);
}
BENCHMARK(readDoubleStd)->Name("read double/std::from_chars");

// The coordinate's text.
void formatTov(benchmark::State& state)
{
    for (auto _ : state) {
        const StringHolder text(tovFormat(u"%c %.0f\u00b0 %.0f' %.1f\"", {'N', 48.0, 7.0, 24.4}));
        benchmark::DoNotOptimize(text.get());
    }
}
BENCHMARK(formatTov)->Name("format/tov");

void formatWithC(benchmark::State& state)
{
    for (auto _ : state) {
        char buffer[100];
        const int length = std::snprintf(buffer, sizeof buffer, "%c %.0f\u00b0 %.0f' %.1f\"", 'N',
                                         48.0, 7.0, 24.4);
        UnicodeString text = unicode({buffer, static_cast<std::size_t>(length)});
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(formatWithC)->Name("format/snprintf and icu::UnicodeString");

#ifdef PINORAMA_BENCH_QT
QString qt(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

void appendQt(benchmark::State& state)
{
    const QString word = qt("coordinates ");
    for (auto _ : state) {
        QString text;
        for (int i = 0; i < kAppends; i++) text += word;
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(appendQt)->Name("append text/QString");

void appendCStringQt(benchmark::State& state)
{
    for (auto _ : state) {
        QString text;
        for (int i = 0; i < kAppends; i++) text += QLatin1String("coordinates ");
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(appendCStringQt)->Name("append C string/QString");

void compareQt(benchmark::State& state, const char* a, const char* b, Qt::CaseSensitivity cases)
{
    const QString first = qt(a), second = qt(b);
    for (auto _ : state) benchmark::DoNotOptimize(first.compare(second, cases));
}
BENCHMARK_CAPTURE(compareQt, path, kPath, kOtherPath, Qt::CaseSensitive)
    ->Name("compare/QString, units only");
BENCHMARK_CAPTURE(compareQt, cased, kPath, kPathInOtherCase, Qt::CaseInsensitive)
    ->Name("compare without case/QString, units only");

void searchQt(benchmark::State& state, const std::string& page, Qt::CaseSensitivity cases)
{
    const QString text = qt(page + "the end"), word = qt("the end");
    for (auto _ : state) benchmark::DoNotOptimize(text.indexOf(word, 0, cases));
}
BENCHMARK_CAPTURE(searchQt, ascii, kASCIIPage, Qt::CaseSensitive)
    ->Name("search/QString, units only");
BENCHMARK_CAPTURE(searchQt, mixed, kMixedPage, Qt::CaseSensitive)
    ->Name("search beyond ASCII/QString, units only");
BENCHMARK_CAPTURE(searchQt, cased, kASCIIPage, Qt::CaseInsensitive)
    ->Name("search without case/QString, units only");

void fromUTF8Qt(benchmark::State& state, const std::string& page)
{
    for (auto _ : state) benchmark::DoNotOptimize(qt(page));
}
BENCHMARK_CAPTURE(fromUTF8Qt, ascii, kASCIIPage)->Name("from UTF-8/QString");
BENCHMARK_CAPTURE(fromUTF8Qt, mixed, kMixedPage)->Name("from UTF-8 beyond ASCII/QString");

void toUTF8Qt(benchmark::State& state, const std::string& page)
{
    const QString text = qt(page);
    for (auto _ : state) benchmark::DoNotOptimize(text.toUtf8());
}
BENCHMARK_CAPTURE(toUTF8Qt, ascii, kASCIIPage)->Name("to UTF-8/QString");
BENCHMARK_CAPTURE(toUTF8Qt, mixed, kMixedPage)->Name("to UTF-8 beyond ASCII/QString");

void readDoubleQt(benchmark::State& state)
{
    // toDouble accepts nothing after the number.
    const QString text = qt(kDouble.substr(0, kDouble.find(' ')));
    for (auto _ : state) benchmark::DoNotOptimize(text.toDouble());
}
BENCHMARK(readDoubleQt)->Name("read double/QString");

void formatQt(benchmark::State& state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            QString::asprintf("%c %.0f\u00b0 %.0f' %.1f\"", 'N', 48.0, 7.0, 24.4));
    }
}
BENCHMARK(formatQt)->Name("format/QString");
#endif
}  // namespace
