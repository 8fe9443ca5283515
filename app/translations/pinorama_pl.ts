<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl_PL" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Pinorama</source>
        <translation>O programie Pinorama</translation>
    </message>
    <message>
        <source>Shows where the picture selected in the file manager was taken.</source>
        <translation>Pokazuje, gdzie wykonano zdjęcie zaznaczone w menedżerze plików.</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes with no warranty.</source>
        <translation>Wolne oprogramowanie na licencji GNU General Public License w wersji 3 lub nowszej. Bez jakiejkolwiek gwarancji.</translation>
    </message>
    <message>
        <source>Made with these libraries:</source>
        <translation>Wykorzystane biblioteki:</translation>
    </message>
    <message>
        <source>Places and map are made from:</source>
        <translation>Źródła miejsc i mapy:</translation>
    </message>
</context>
<context>
    <name>pinorama::AccessibilityNotice</name>
    <message>
        <source>S&amp;witch On</source>
        <translation>&amp;Włącz</translation>
    </message>
    <message>
        <source>Pinorama can follow the selection in %1 once accessibility is on. This is a permanent setting of your desktop; restart the file manager after switching it on.</source>
        <translation>Zaznaczenie w programie %1 można śledzić, gdy ułatwienia dostępu są włączone. To trwałe ustawienie pulpitu; po włączeniu uruchom ponownie menedżer plików.</translation>
    </message>
    <message>
        <source>Accessibility is on. Restart %1 or log in again; Pinorama then follows its selection.</source>
        <translation>Ułatwienia dostępu są włączone. Uruchom ponownie program %1 albo zaloguj się jeszcze raz, aby śledzić jego zaznaczenie.</translation>
    </message>
    <message>
        <source>Accessibility could not be switched on. The manual explains how to do it by hand.</source>
        <translation>Nie udało się włączyć ułatwień dostępu. Podręcznik opisuje, jak zrobić to ręcznie.</translation>
    </message>
</context>
<context>
    <name>pinorama::AppController</name>
    <message>
        <source>Files cannot be opened: the program pinorama-opener does not start.</source>
        <translation>Nie można otwierać plików: program pinorama-opener się nie uruchamia.</translation>
    </message>
    <message>
        <source>Pictures cannot be read: the program pinorama-reader does not start.</source>
        <translation>Nie można odczytać zdjęć: program pinorama-reader się nie uruchamia.</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <extracomment>Reads the file again that is shown</extracomment>
        <translation>Wczytaj po&amp;nownie</translation>
    </message>
</context>
<context>
    <name>pinorama::CopyMenu</name>
    <message>
        <source>Copy &amp;It As</source>
        <extracomment>The menu of the forms in which a place can be copied</extracomment>
        <translation>Kopiuj &amp;jako</translation>
    </message>
    <message>
        <source>As Shown</source>
        <translation>Tak jak wyświetlono</translation>
    </message>
    <message>
        <source>Decimal Degrees</source>
        <translation>Stopnie dziesiętne</translation>
    </message>
    <message>
        <source>Degrees and Decimal Minutes</source>
        <translation>Stopnie i minuty dziesiętne</translation>
    </message>
    <message>
        <source>geo: Address</source>
        <extracomment>An address that begins with &quot;geo:&quot;, which map programs take</extracomment>
        <translation>Adres „geo:”</translation>
    </message>
    <message>
        <source>Place in Words</source>
        <extracomment>Copies &quot;Near Ushuaia, Argentina&quot;</extracomment>
        <translation>Miejsce w słowach</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <extracomment>%1 is a map service, such as OpenStreetMap</extracomment>
        <translation>Łącze do %1</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportDialog</name>
    <message>
        <source>KML files (*.kml)</source>
        <translation>Pliki KML (*.kml)</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportNotice</name>
    <message>
        <source>the disk is full.</source>
        <translation>dysk jest pełny.</translation>
    </message>
    <message>
        <source>writing there is not allowed.</source>
        <translation>zapis w tym miejscu jest niedozwolony.</translation>
    </message>
    <message>
        <source>there is no such folder.</source>
        <translation>nie ma takiego folderu.</translation>
    </message>
    <message>
        <source>a folder has that name.</source>
        <translation>taką nazwę ma folder.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>Nie można zapisać pliku %1: %2</translation>
    </message>
    <message>
        <source>%1 was saved.</source>
        <extracomment>%1 is the name of a file that was written</extracomment>
        <translation>Zapisano plik %1.</translation>
    </message>
    <message>
        <source>Show in Fo&amp;lder</source>
        <extracomment>A button: shows the file in the file manager</extracomment>
        <translation>Pokaż w &amp;folderze</translation>
    </message>
    <message>
        <source>the disk does not answer.</source>
        <translation>dysk nie odpowiada.</translation>
    </message>
</context>
<context>
    <name>pinorama::MainWindow</name>
    <message>
        <source>Preview</source>
        <translation>Podgląd</translation>
    </message>
    <message>
        <source>The picture has a location</source>
        <translation>Zdjęcie zawiera miejsce wykonania</translation>
    </message>
    <message>
        <source>Opens the location in a web map</source>
        <translation>Otwiera miejsce na mapie internetowej</translation>
    </message>
    <message>
        <source>Map Services</source>
        <translation>Serwisy map</translation>
    </message>
    <message>
        <source>Flies the globe program to the location</source>
        <translation>Przenosi widok globusa do tego miejsca</translation>
    </message>
    <message>
        <source>Show in &amp;Globe</source>
        <translation>Pokaż na &amp;globusie</translation>
    </message>
    <message>
        <source>Finds all catalogued pictures taken within 2000 m</source>
        <translation>Znajduje wszystkie skatalogowane zdjęcia wykonane w promieniu 2000&#xa0;m</translation>
    </message>
    <message>
        <source>&amp;Find in Skallion</source>
        <translation>&amp;Znajdź w Skallionie</translation>
    </message>
    <message>
        <source>Writes the location as a placemark file</source>
        <translation>Zapisuje miejsce w pliku jako znacznik</translation>
    </message>
    <message>
        <source>&amp;Export as KML…</source>
        <translation>&amp;Eksportuj jako KML…</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nazwa:</translation>
    </message>
    <message>
        <source>Select a picture, or drop one here</source>
        <translation>Zaznacz zdjęcie lub upuść je tutaj</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Rozmiar:</translation>
    </message>
    <message>
        <source>Modified:</source>
        <translation>Zmieniono:</translation>
    </message>
    <message>
        <source>Created:</source>
        <translation>Utworzono:</translation>
    </message>
    <message>
        <source>Coordinate:</source>
        <translation>Współrzędne:</translation>
    </message>
    <message>
        <source>Altitude:</source>
        <translation>Wysokość:</translation>
    </message>
    <message>
        <source>Direction:</source>
        <translation>Kierunek:</translation>
    </message>
    <message>
        <source>City:</source>
        <translation>Miejscowość:</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>Region:</translation>
    </message>
    <message>
        <source>Country:</source>
        <translation>Kraj:</translation>
    </message>
    <message>
        <source>Caption:</source>
        <translation>Opis:</translation>
    </message>
    <message>
        <source>Always shows the picture selected in the file manager</source>
        <translation>Zawsze pokazuje zdjęcie zaznaczone w menedżerze plików</translation>
    </message>
    <message>
        <source>Follow the &amp;selection in the file manager</source>
        <translation>Śledź z&amp;aznaczenie w menedżerze plików</translation>
    </message>
    <message>
        <source>&amp;Picture</source>
        <translation>Z&amp;djęcie</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Pomoc</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Otwórz…</translation>
    </message>
    <message>
        <source>Open in &amp;Map Service</source>
        <translation>Otwórz w serwisie &amp;map</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>Zam&amp;knij okno</translation>
    </message>
    <message>
        <source>&amp;Quit Pinorama</source>
        <translation>Zakoń&amp;cz program Pinorama</translation>
    </message>
    <message>
        <source>Pinorama &amp;Home Page</source>
        <translation>Strona &amp;domowa Pinoramy</translation>
    </message>
    <message>
        <source>&amp;Donate…</source>
        <translation>&amp;Wesprzyj…</translation>
    </message>
    <message>
        <source>&amp;About Pinorama</source>
        <translation>&amp;O programie Pinorama</translation>
    </message>
    <message>
        <source>Cop&amp;y Coordinate</source>
        <translation>Kopiuj &amp;współrzędne</translation>
    </message>
    <message>
        <source>Copy as &amp;Decimal Degrees</source>
        <translation>Kopiuj w stopniach &amp;dziesiętnych</translation>
    </message>
    <message>
        <source>Pinorama &amp;Manual</source>
        <translation>&amp;Podręcznik programu Pinorama</translation>
    </message>
    <message>
        <source>Place</source>
        <extracomment>What a screen reader says before the place in words.</extracomment>
        <translation>Miejsce</translation>
    </message>
    <message>
        <source>A click shows more of the surroundings, or less</source>
        <extracomment>Of the small map.</extracomment>
        <translation>Kliknięcie pokazuje więcej lub mniej okolicy</translation>
    </message>
    <message>
        <source>&amp;Read More Kinds of Files</source>
        <translation>Czytaj więcej &amp;rodzajów plików</translation>
    </message>
    <message>
        <source>Taken:</source>
        <extracomment>The time at which the picture was taken.</extracomment>
        <translation>Wykonano:</translation>
    </message>
</context>
<context>
    <name>pinorama::Notice</name>
    <message>
        <source>&amp;Dismiss</source>
        <translation>&amp;Ukryj</translation>
    </message>
</context>
<context>
    <name>pinorama::PathIntake</name>
    <message>
        <source>Open Picture</source>
        <translation>Otwórz zdjęcie</translation>
    </message>
</context>
<context>
    <name>pinorama::ReadingNotice</name>
    <message>
        <source>Still reading %1...</source>
        <translation>Wciąż trwa odczyt pliku %1...</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>Nie udało się odczytać pliku %1.</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <translation>Plik %1 nie odpowiada.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 could not be read.</source>
        <translation>Nie udało się odczytać pliku XMP obok pliku %1.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 does not answer.</source>
        <translation>Plik XMP obok pliku %1 nie odpowiada.</translation>
    </message>
</context>
<context>
    <name>pinorama::PictureWords</name>
    <message>
        <source>%1 is a folder.</source>
        <extracomment>The foot of the window; so are the others. %1 is the name of the file that is shown</extracomment>
        <translation>%1 to folder.</translation>
    </message>
    <message>
        <source>%1 is no file that can be read.</source>
        <extracomment>A pipe or a device</extracomment>
        <translation>%1 nie jest plikiem, który można odczytać.</translation>
    </message>
    <message>
        <source>Files of this type are not read: JPEG and the raw files of cameras are.</source>
        <translation>Pliki tego typu nie są odczytywane: tylko JPEG i surowe pliki z aparatów.</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <translation>Nie ma pliku %1.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1.</source>
        <translation>Nie masz uprawnień do odczytu pliku %1.</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2.</source>
        <extracomment>%2 is the system&apos;s reason, such as &quot;Input/output error&quot;</extracomment>
        <translation>Nie można otworzyć pliku %1: %2.</translation>
    </message>
    <message>
        <source>This picture does not say where it was taken.</source>
        <translation>To zdjęcie nie zawiera miejsca wykonania.</translation>
    </message>
    <message>
        <source>Several files are selected; the window shows one at a time.</source>
        <translation>Zaznaczono kilka plików; okno pokazuje tylko jeden naraz.</translation>
    </message>
</context>
<context>
    <name>pinorama::MoreKinds</name>
    <message>
        <source>From Exif</source>
        <translation>Z Exif</translation>
    </message>
    <message>
        <source>From IPTC</source>
        <translation>Z IPTC</translation>
    </message>
    <message>
        <source>From XMP in the file</source>
        <translation>Z XMP w pliku</translation>
    </message>
    <message>
        <source>From the video</source>
        <translation>Z filmu</translation>
    </message>
    <message>
        <source>From the XMP file beside it</source>
        <translation>Z pliku XMP obok</translation>
    </message>
    <message>
        <source>Read Them</source>
        <translation>Czytaj</translation>
    </message>
    <message>
        <source>%1 pictures can be read, too.</source>
        <translation>Zdjęcia %1 też można odczytać.</translation>
    </message>
    <message>
        <source>%1 videos can be read, too.</source>
        <translation>Filmy %1 też można odczytać.</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyModel</name>
    <message>
        <source>same place</source>
        <translation>to samo miejsce</translation>
    </message>
    <message>
        <source>%1 m %2</source>
        <extracomment>%1 is a distance, %2 a point of the compass: 350 m NE</extracomment>
        <translation>%1&#xa0;m %2</translation>
    </message>
    <message>
        <source>%1 km %2</source>
        <extracomment>%1 is a distance, %2 a point of the compass: 1.2 km NE</extracomment>
        <translation>%1&#xa0;km %2</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyWindow</name>
    <message>
        <source>&amp;Stop</source>
        <extracomment>Button: ends the search</extracomment>
        <translation>&amp;Zatrzymaj</translation>
    </message>
    <message>
        <source>Pictures Nearby</source>
        <extracomment>Title of the window</extracomment>
        <translation>Zdjęcia w pobliżu</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <extracomment>Context menu: opens the picture in the program for it</extracomment>
        <translation>&amp;Otwórz</translation>
    </message>
    <message>
        <source>Within %1 m of %2</source>
        <extracomment>Above the pictures that were found; %2 is the name of a file</extracomment>
        <translation>W promieniu %1&#xa0;m od %2</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Wyszukiwanie...</translation>
    </message>
    <message>
        <source>Searching... Pictures found so far: %1</source>
        <translation>Wyszukiwanie... Dotąd znalezione zdjęcia: %1</translation>
    </message>
    <message>
        <source>Stopped. Pictures found until then: %1</source>
        <translation>Zatrzymano. Znalezione do tego czasu zdjęcia: %1</translation>
    </message>
    <message>
        <source>The search ended too early. Pictures found until then: %1</source>
        <translation>Wyszukiwanie zakończyło się przedwcześnie. Znalezione do tego czasu zdjęcia: %1</translation>
    </message>
    <message>
        <source>Pictures cannot be searched: the program pinorama-search does not start.</source>
        <translation>Nie można wyszukiwać zdjęć: program pinorama-search się nie uruchamia.</translation>
    </message>
    <message>
        <source>Pictures found: %1. The nearest %2 are shown.</source>
        <translation>Znalezione zdjęcia: %1. Widoczne są najbliższe: %2.</translation>
    </message>
    <message>
        <source>Pictures found: %1</source>
        <translation>Znalezione zdjęcia: %1</translation>
    </message>
    <message>
        <source>No other picture within %1 m was found in these folders:
%2</source>
        <extracomment>%2 is a list of folders</extracomment>
        <translation>W tych folderach nie ma innych zdjęć w promieniu %1&#xa0;m:
%2</translation>
    </message>
    <message>
        <source>Open &amp;With...</source>
        <extracomment>Context menu: has the user choose the program</extracomment>
        <translation>Otwórz &amp;za pomocą...</translation>
    </message>
</context>
<context>
    <name>pinorama::PlaceActions</name>
    <message>
        <source>The globe program cannot be started.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>Nie można uruchomić programu z globusem.</translation>
    </message>
    <message>
        <source>Needs Marble, Google Earth or another program that opens KML files</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Wymaga programu Marble, Google Earth lub innego, który otwiera pliki KML</translation>
    </message>
    <message>
        <source>Without Skallion, pictures nearby are looked for in the folders around this one</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Bez Skalliona zdjęcia z okolicy są wyszukiwane w pobliskich folderach</translation>
    </message>
</context>
<context>
    <name>pinorama::SayingOpener</name>
    <message>
        <source>No web browser is installed.</source>
        <extracomment>The foot of the window; so are the others</extracomment>
        <translation>Nie ma zainstalowanej przeglądarki.</translation>
    </message>
    <message>
        <source>No program opens geo: addresses. Marble and GNOME Maps do.</source>
        <extracomment>&quot;geo:&quot; is the beginning of an address; the names are those of programs</extracomment>
        <translation>Żaden program nie otwiera adresów geo:. Robią to Marble i Mapy GNOME.</translation>
    </message>
    <message>
        <source>No program opens KML files. Marble and Google Earth do.</source>
        <translation>Żaden program nie otwiera plików KML. Robią to Marble i Google Earth.</translation>
    </message>
    <message>
        <source>No program opens addresses that begin with %1:.</source>
        <extracomment>%1 is the beginning of an address, such as &quot;om&quot;</extracomment>
        <translation>Żaden program nie otwiera adresów zaczynających się od %1:.</translation>
    </message>
</context>
<context>
    <name>pinorama::StaleFields</name>
    <message>
        <source>from %1</source>
        <extracomment>Of a text that belongs to an earlier picture; %1 is the name of that</extracomment>
        <translation>z pliku %1</translation>
    </message>
</context>
</TS>
