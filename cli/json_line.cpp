#include "cli/json_line.h"

#include "cli/json_object.h"
#include "cli/report_fields.h"

namespace pinorama {

void appendJsonLine(const FileReport& report, std::string* out)
{
    JsonObject object(out);
    visitFields(report, object);
    object.close();
    *out += '\n';
}

}  // namespace pinorama
