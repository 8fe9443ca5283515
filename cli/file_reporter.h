// Makes the reports on files, many at a time. A sandboxed copy of this process reads the pictures;
// it starts with the first one. A picture that crashes the reader, or that it does not finish
// within the limits, fails, and another reader takes over. Within a batch that may take the limit
// twice, until it is known which picture it was.

#pragma once

#include "base/file_attributes.h"
#include "cli/accepted_names.h"
#include "cli/file_report.h"
#include "cli/options.h"
#include "cli/thumbnailer.h"
#include "lib/strings/string_holder.h"
#include "location/file_facts.h"
#include "location/file_info_record.h"
#include "pictures/picture_file.h"
#include "places/place_finder.h"
#include "reader/reader_client.h"
#include "reader/sandboxed_properties.h"

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pinorama {

// What a report contains besides the place itself.
struct ReportOptions {
    Output output = Output::text;
    StringHolder serviceTemplate{};  // of the web service, for Output::webAddress
    bool placemarks = false;
    bool isRaw = false;         // for Output::csv
    bool hasTrack = false;      // for Output::gpx
    bool isSorted = false;      // by the distance from the place of a search
    Thumbnailer thumbnailer{};  // for Output::kmz
};

// Nobody waits at a window here, so a slow disk has more time than there.
inline constexpr ReaderLimits kReportReaderLimits = {
    .properties = {.processor = std::chrono::seconds(2),
                   .silence = std::chrono::seconds(30),
                   .whole = std::chrono::seconds(60)}};

// True for the outputs that contain every field.
bool showsFields(Output output);

// True for the documents of places: they have the name and the place of a file and no texts of the
// window.
bool isPlaceDocument(Output output);

// True for the outputs that say a place in words.
bool namesPlaces(Output output);

// Loads the texts and the time zone that the fields need; while files are open there may be no
// descriptor left for either. False if a text is missing.
bool prepareTexts();

class FileReporter {
public:
    // Tests pass a launcher of their own.
    explicit FileReporter(ReportOptions options, ReaderLauncher launcher = forkPropertyReader,
                          const ReaderLimits& limits = kReportReaderLimits);

    // Announces all files that will be read, so that the reader starts now if one of them needs it.
    void expect(std::span<const std::string> paths);

    // Creates the formatters now instead of for the first report, so that processes forked later
    // have them.
    void warmUp();

    // Reads the files and returns a report on each, in their order.
    //
    //   paths  at most kMaxDescriptors, in the raw bytes of the system.
    //   alarm  see ReaderClient::readProperties; -1 for none.
    std::vector<FileReport> report(std::span<const std::string> paths, int alarm = -1);

    // The same for one file. Also fills `record`, which the caller has prepared and will release.
    FileReport report(const std::string& path, fileInfoRecord* record);

private:
    // A file while its report is being made.
    struct OpenFile {
        StringHolder path{};
        PictureFile picture{};  // open if it is a camera picture
        PictureFile sidecar{};  // open if more is read, and the picture has one
        std::optional<FileAttributes> attributes{};
    };

    // The last date that was formatted.
    struct DateText {
        std::optional<std::uint32_t> date{};
        std::string text{};
    };

    OpenFile open(const std::string& path, FileReport* report);
    static void addDescriptors(const OpenFile& file, std::vector<int>* descriptors);
    static PropertyResult takeReply(const OpenFile& file, std::span<PropertyResult>* replies);
    void fillFileFields(const OpenFile& file, FileReport* report);
    void fillFacts(const fileFacts& facts, FileReport* report);
    void fillPlace(const OpenFile& file, const PropertyResult& reply, fileInfoRecord* record,
                   FileReport* report);

    ReportOptions options_;
    PlaceFinder places_{placesFile()};
    ReaderClient reader_;
    AcceptedNames accepted_;
    bool isOnlyFile_ = false;
    // Files that were copied to a folder together often have the same dates.
    DateText modified_{};
    DateText created_{};
};

}  // namespace pinorama
