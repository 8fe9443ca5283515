#include "cli/csv_line.h"

#include "base/printable.h"
#include "cli/report_fields.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace pinorama {
namespace {
constexpr std::string_view kReplacement = "\xef\xbf\xbd";  // U+FFFD

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

// True for a sign and digits, possibly in metres, as the program writes altitudes and directions.
bool isSignedNumber(std::string_view text)
{
    if (text.ends_with(" m")) text.remove_suffix(2);
    return text.size() > 1 && (text[0] == '-' || text[0] == '+') && isDigit(text[1]) &&
           std::all_of(text.begin() + 1, text.end(), [](char c) { return isDigit(c) || c == '.'; });
}

// True for a text that spreadsheets may run. Some take wide characters for the usual ones, and some
// skip white space.
bool isFormula(std::string_view text)
{
    constexpr std::string_view kBeginnings[] = {"=",  "+",      "-",      "@",      "\t",    "\r",
                                                "\n", "\uff1d", "\uff0b", "\uff0d", "\uff20"};
    return std::any_of(std::begin(kBeginnings), std::end(kBeginnings),
                       [text](std::string_view begin) { return text.starts_with(begin); }) &&
           !isSignedNumber(text);
}

// Writes the fields of one row.
class RowWriter {
public:
    explicit RowWriter(std::string* out) : out_(out) {}
    void close() { *out_ += "\r\n"; }

    void add(std::string_view, std::string_view text)
    {
        separate();
        const bool isQuoted = text.find_first_of("\",\r\n") != std::string_view::npos;
        if (isQuoted) *out_ += '"';
        if (isFormula(text)) *out_ += '\'';
        for (std::size_t i = 0; i < text.size(); i++) i += addCharacter(text, i);
        if (isQuoted) *out_ += '"';
    }
    void add(std::string_view key, const std::optional<std::string>& text)
    {
        add(key, text ? std::string_view(*text) : std::string_view());
    }
    void add(std::string_view key, bool value) { add(key, value ? "true" : "false"); }
    // Without this one a C string would be taken for a bool.
    void add(std::string_view key, const char* text) { add(key, std::string_view(text)); }
    void add(std::string_view, std::int32_t value) { addNumber(value); }
    void add(std::string_view key, const std::optional<std::uint64_t>& value)
    {
        value ? addNumber(*value) : addNothing(key);
    }
    void add(std::string_view key, const std::optional<double>& value)
    {
        value&& std::isfinite(*value) ? addNumber(*value) : addNothing(key);
    }
    void addNothing(std::string_view) { separate(); }

private:
    // Adds the character at `at`, or what stands for it; returns how many bytes more than one it
    // has. Line breaks and tabs stay, except for a lone CR: on a terminal it would begin the line
    // anew.
    std::size_t addCharacter(std::string_view text, std::size_t at)
    {
        const char c = text[at];
        const bool isLoneReturn = c == '\r' && !text.substr(at + 1).starts_with('\n');
        const DisplayControl control = displayControlAt(text, at);
        if (c == '"') *out_ += '"';
        if (isLoneReturn) {
            *out_ += '\n';
        } else if (control && c != '\n' && c != '\r' && c != '\t') {
            *out_ += kReplacement;
            return control.length - 1;
        } else {
            *out_ += c;
        }
        return 0;
    }
    void separate()
    {
        if (!isFirst_) *out_ += ',';
        isFirst_ = false;
    }
    template <typename Number>
    void addNumber(Number value)
    {
        separate();
        char digits[32];
        out_->append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
    }

    std::string* out_;
    bool isFirst_ = true;
};

// Writes the keys instead of the values.
class HeaderWriter {
public:
    explicit HeaderWriter(std::string* out) : row_(out) {}
    void close() { row_.close(); }

    template <typename Value>
    void add(std::string_view key, const Value&)
    {
        row_.add(key, key);
    }
    void addNothing(std::string_view key) { row_.add(key, key); }

private:
    RowWriter row_;
};
}  // namespace

void appendCsvHeader(CsvColumns columns, std::string* out)
{
    HeaderWriter header(out);
    visitColumns(FileReport{}, columns, header);
    header.close();
}

void appendCsvLine(const FileReport& report, CsvColumns columns, std::string* out)
{
    RowWriter row(out);
    visitColumns(report, columns, row);
    row.close();
}

}  // namespace pinorama
