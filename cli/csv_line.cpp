#include "cli/csv_line.h"

#include "cli/report_fields.h"

#include <charconv>
#include <cmath>

namespace pinorama {
namespace {
// Writes the fields of one row.
class RowWriter {
public:
    explicit RowWriter(std::string* out) : out_(out) {}
    void close() { *out_ += "\r\n"; }

    void add(std::string_view, std::string_view text)
    {
        separate();
        if (text.find_first_of("\",\r\n") == std::string_view::npos) {
            *out_ += text;
            return;
        }
        *out_ += '"';
        for (const char c : text) {
            if (c == '"') *out_ += '"';
            *out_ += c;
        }
        *out_ += '"';
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
    void add(std::string_view key, double value)
    {
        std::isfinite(value) ? addNumber(value) : addNothing(key);
    }
    void addNothing(std::string_view) { separate(); }

private:
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

void appendCsvHeader(std::string* out)
{
    HeaderWriter header(out);
    visitFields(FileReport{}, header);
    header.close();
}

void appendCsvLine(const FileReport& report, std::string* out)
{
    RowWriter row(out);
    visitFields(report, row);
    row.close();
}

}  // namespace pinorama
