// Makes the reports on files, many at a time. Sandboxed copies of this process read the pictures,
// one after the other; the first one starts with the first picture. A picture that crashes its
// reader, or gets it stuck, costs that picture. Among others it may take the limit twice, until it
// is known which one it is.

#pragma once

#include "base/descriptor.h"
#include "base/file_attributes.h"
#include "cli/accepted_names.h"
#include "cli/file_report.h"
#include "cli/options.h"
#include "lib/strings/string_holder.h"
#include "location/file_facts.h"
#include "location/file_info_record.h"
#include "reader/reader_client.h"
#include "reader/sandboxed_properties.h"

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pinorama {

// What to find out beyond the place itself.
struct ReportWishes {
    Output output = Output::text;
    StringHolder serviceTemplate{};  // of the web service, for Output::webAddress
    bool placemarks = false;
};

// Nobody waits at a window here, so a slow disk has more time than there.
inline constexpr ReaderLimits kReportReaderLimits = {
    .properties = {.processor = std::chrono::seconds(2),
                   .silence = std::chrono::seconds(30),
                   .whole = std::chrono::seconds(60)}};

// True for the outputs that have every field of a file.
bool showsFields(Output output);

// True when the texts that fields are written with are all there. What the system has to be asked
// for besides, the time zone, is known from then on as well: while files are open there may be no
// descriptor left for either.
bool prepareTexts();

class FileReporter {
public:
    // Tests pass a launcher of their own.
    explicit FileReporter(ReportWishes wishes, ReaderLauncher launcher = forkPropertyReader,
                          const ReaderLimits& limits = kReportReaderLimits);

    // Has the reader get ready when one of the files will need it. They are all that will be read.
    void expect(std::span<const std::string> paths);

    // Makes the formatters that reports need now instead of with the first report, so that
    // processes that are split off have them as well.
    void warmUp();

    // Reads files: a report on each, in their order.
    //
    //   paths  at most kMostDescriptors, in the raw bytes of the system.
    //   alarm  as of ReaderClient::readProperties; -1 for none.
    std::vector<FileReport> report(std::span<const std::string> paths, int alarm = -1);

    // The same for one file, whose record the caller gets: prepared before, released after.
    FileReport report(const std::string& path, fileInfoRecord* record);

private:
    // One file while its report is being made.
    struct OpenFile {
        StringHolder path{};
        DescriptorHolder descriptor{};  // of a camera picture, a regular file
        std::optional<FileAttributes> attributes{};
    };

    // The last date that was written.
    struct DateText {
        std::optional<std::uint32_t> date{};
        std::string text{};
    };

    OpenFile open(const std::string& path, FileReport* report);
    void tellFile(const OpenFile& file, FileReport* report);
    void tellFacts(const fileFacts& facts, FileReport* report);
    void tellPlace(const OpenFile& file, const PropertyResult& answer, fileInfoRecord* record,
                   FileReport* report) const;

    ReportWishes wishes_;
    ReaderClient reader_;
    AcceptedNames accepted_;
    bool isOnlyFile_ = false;
    // Files that came to a folder together have the same dates.
    DateText modified_{};
    DateText created_{};
};

}  // namespace pinorama
