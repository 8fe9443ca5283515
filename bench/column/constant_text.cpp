// Gives every file the same text in the column, at once, and the emblem, as constant_text.py does:
// what remains of its cost without Python. The interface of Caja is the one of Nautilus under
// another name; PINORAMA_CAJA chooses it.

#ifdef PINORAMA_CAJA
#include <libcaja-extension/caja-column-provider.h>
#include <libcaja-extension/caja-info-provider.h>
#define NAMED(name) caja_##name
#define TYPED(name) Caja##name
#define TYPE_OF(name) CAJA_TYPE_##name
using ColumnInterface = CajaColumnProviderIface;
using InfoInterface = CajaInfoProviderIface;
constexpr CajaOperationResult kComplete = CAJA_OPERATION_COMPLETE;
#else
#include <gio/gio.h>
extern "C" {  // the header does not say so for the functions of an extension
#include <nautilus-extension.h>
}
#define NAMED(name) nautilus_##name
#define TYPED(name) Nautilus##name
#define TYPE_OF(name) NAUTILUS_TYPE_##name
using ColumnInterface = NautilusColumnProviderInterface;
using InfoInterface = NautilusInfoProviderInterface;
constexpr NautilusOperationResult kComplete = NAUTILUS_OPERATION_COMPLETE;
#endif

namespace {
constexpr const char* kAttribute = "pinorama_taken_at";

GType gType = G_TYPE_INVALID;

GList* columns(TYPED(ColumnProvider) * /*provider*/)
{
    return g_list_append(
        nullptr, NAMED(column_new)("PinoramaColumn::taken_at", kAttribute, "Constant", "Constant"));
}

TYPED(OperationResult)
updateFile(TYPED(InfoProvider) * /*provider*/, TYPED(FileInfo) * file, GClosure* /*whenDone*/,
           TYPED(OperationHandle) * * /*outHandle*/)
{
    NAMED(file_info_add_string_attribute)(file, kAttribute, "Near Ushuaia, Argentina");
    NAMED(file_info_add_emblem)(file, "org.pinorama.Pinorama");
    return kComplete;
}

void cancelUpdate(TYPED(InfoProvider) * /*provider*/, TYPED(OperationHandle) * /*handle*/) {}

void fillColumnInterface(gpointer interface, gpointer /*data*/)
{
    static_cast<ColumnInterface*>(interface)->get_columns = columns;
}

void fillInfoInterface(gpointer interface, gpointer /*data*/)
{
    static_cast<InfoInterface*>(interface)->update_file_info = updateFile;
    static_cast<InfoInterface*>(interface)->cancel_update = cancelUpdate;
}
}  // namespace

// The three functions that the file manager looks up in an extension.
extern "C" {
__attribute__((visibility("default"))) void NAMED(module_initialize)(GTypeModule* module)
{
    GTypeInfo info{};
    info.class_size = sizeof(GObjectClass);
    info.instance_size = sizeof(GObject);
    gType = g_type_module_register_type(module, G_TYPE_OBJECT, "PinoramaConstantText", &info,
                                        static_cast<GTypeFlags>(0));
    const GInterfaceInfo column = {fillColumnInterface, nullptr, nullptr};
    g_type_module_add_interface(module, gType, TYPE_OF(COLUMN_PROVIDER), &column);
    const GInterfaceInfo files = {fillInfoInterface, nullptr, nullptr};
    g_type_module_add_interface(module, gType, TYPE_OF(INFO_PROVIDER), &files);
}

__attribute__((visibility("default"))) void NAMED(module_shutdown)() {}

__attribute__((visibility("default"))) void NAMED(module_list_types)(const GType** outTypes,
                                                                     int* outCount)
{
    *outTypes = &gType;
    *outCount = 1;
}
}
