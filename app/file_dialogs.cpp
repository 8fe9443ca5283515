#include "app/file_dialogs.h"

#include <QCoreApplication>
#include <QFile>

namespace pinorama {
namespace {
// The toolkit decides by the same two signs whether to use the portal.
bool isInContainer()
{
    return qEnvironmentVariableIsSet("SNAP") || QFile::exists(QStringLiteral("/.flatpak-info"));
}
}  // namespace

void refuseForeignDialogs()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs, !isInContainer());
}

}  // namespace pinorama
