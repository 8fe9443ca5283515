#include "app/file_fields.h"

#include "app/main_window.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/cocoa_utils.h"
#include "lib/ui/qt_text.h"
#include "location/coordinate_text.h"
#include "location/file_facts.h"

namespace pinorama {
namespace {
// Shows a text that is the caller's to release, and releases it.
void showOwned(QWidget* field, TovStringRef text)
{
    cocoaUtils::setStringValue(field, StringHolder(text).get());
}
}  // namespace

void FileFields::showName(TovStringRef path)
{
    showOwned(window_.fileNameField, gpsCopyFileName(path));
    window_.fileNameField->setToolTip(cuDisplayText(path));
    window_.fileIconField->showNothing();
}

void FileFields::showItem(const std::string& path, const std::optional<FileAttributes>& item)
{
    const fileFacts facts = item ? gpsMakeFileFacts(*item) : fileFacts{};
    window_.fileIconField->setFile(item ? path : std::string());
    showOwned(window_.fileSizeField, gpsMakeFileSizeText(facts));
    showOwned(window_.fileModificationDateField, gpsMakeModifiedText(facts));
    showOwned(window_.fileCreationDateField, gpsMakeCreatedText(facts));
}

void FileFields::clearItem()
{
    for (QWidget* field :
         {window_.fileSizeField, window_.fileModificationDateField, window_.fileCreationDateField})
        cocoaUtils::setStringValue(field, nullptr);
}

void FileFields::showPreview(const QPixmap& preview)
{
    window_.fileIconField->showPreview(preview);
}

void FileFields::showInsteadOfPreview(const QString& words)
{
    window_.fileIconField->setText(words);
}

void FileFields::showPlace(const fileInfoRecord& info)
{
    showOwned(window_.gpsCoordinateField, gpsMakePositionText(info));
    showOwned(window_.gpsDirectionField, gpsMakeDirectionText(info));
    showOwned(window_.gpsAltitudeField, gpsMakeAltitudeText(info));
    cocoaUtils::setStringValue(window_.iptcCityField, info.city);
    cocoaUtils::setStringValue(window_.iptcCountryField, info.country);
    cocoaUtils::setStringValue(window_.iptcStateField, info.state);
    cocoaUtils::setStringValue(window_.iptcDescriptionField, info.description);
}

void FileFields::clearPosition()
{
    for (QWidget* field :
         {window_.gpsCoordinateField, window_.gpsDirectionField, window_.gpsAltitudeField})
        cocoaUtils::setStringValue(field, nullptr);
}

void FileFields::clearPlaceTexts()
{
    for (QWidget* field : {window_.iptcCityField, window_.iptcCountryField, window_.iptcStateField,
                           window_.iptcDescriptionField})
        cocoaUtils::setStringValue(field, nullptr);
}

}  // namespace pinorama
