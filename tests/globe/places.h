// Records of pictures that know where they were taken and nothing else.

#pragma once

#include "location/file_info_record.h"

namespace test {

// `latti` and `longi` are magnitudes in degrees, the letters their hemispheres; 0 for none known.
inline fileInfoRecord place(double latti, char refLatti, double longi, char refLongi)
{
    fileInfoRecord info = {};
    info.latti = latti;
    info.refLatti = refLatti;
    info.longi = longi;
    info.refLongi = refLongi;
    return info;
}

}  // namespace test
