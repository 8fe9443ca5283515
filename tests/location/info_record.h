// A record of facts about a picture that gives its texts back.

#pragma once

#include "location/metadata_reader.h"

namespace test {

class Record {
public:
    Record() { gpsPrepareInfoRecord(&record_); }
    ~Record() { gpsReleaseInfoRecord(&record_); }
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;
    fileInfoRecord* get() { return &record_; }
    fileInfoRecord* operator->() { return &record_; }

private:
    fileInfoRecord record_{};
};

}  // namespace test
