#include "location/file_info_record.h"

#include "lib/strings/tov_string.h"

void gpsPrepareInfoRecord(fileInfoRecord* record)
{
    if (record == nullptr) return;
    gpsReleaseInfoRecord(record);
    *record = {};
    record->distance = kDefaultViewDistance;
}

void gpsReleaseInfoRecord(fileInfoRecord* record)
{
    if (record == nullptr) return;
    TovStringRelease(&record->city);
    TovStringRelease(&record->state);
    TovStringRelease(&record->country);
    TovStringRelease(&record->description);
}

double pinorama::signedLatitude(const fileInfoRecord& record)
{
    return record.refLatti == 'S' ? -record.latti : record.latti;
}

double pinorama::signedLongitude(const fileInfoRecord& record)
{
    return record.refLongi == 'W' ? -record.longi : record.longi;
}
