<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Pinorama</source>
        <translation>Über Pinorama</translation>
    </message>
    <message>
        <source>Shows where the picture selected in the file manager was taken.</source>
        <translation>Zeigt, wo das in der Dateiverwaltung ausgewählte Bild aufgenommen wurde.</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes with no warranty.</source>
        <translation>Freie Software unter der GNU General Public License, Version 3 oder neuer. Ohne jede Gewähr.</translation>
    </message>
    <message>
        <source>Made with these libraries:</source>
        <translation>Verwendete Bibliotheken:</translation>
    </message>
    <message>
        <source>Places and map are made from:</source>
        <translation>Quellen der Orte und der Karte:</translation>
    </message>
</context>
<context>
    <name>pinorama::AccessibilityNotice</name>
    <message>
        <source>S&amp;witch On</source>
        <translation>Ein&amp;schalten</translation>
    </message>
    <message>
        <source>Pinorama can follow the selection in %1 once accessibility is on. This is a permanent setting of your desktop; restart the file manager after switching it on.</source>
        <translation>Pinorama kann der Auswahl in %1 folgen, sobald die Barrierefreiheit eingeschaltet ist. Das ist eine dauerhafte Einstellung der Arbeitsumgebung; danach muss die Dateiverwaltung neu gestartet werden.</translation>
    </message>
    <message>
        <source>Accessibility is on. Restart %1 or log in again; Pinorama then follows its selection.</source>
        <translation>Die Barrierefreiheit ist eingeschaltet. Nach einem Neustart von %1 oder einer neuen Anmeldung folgt Pinorama der Auswahl.</translation>
    </message>
    <message>
        <source>Accessibility could not be switched on. The manual explains how to do it by hand.</source>
        <translation>Die Barrierefreiheit ließ sich nicht einschalten. Das Handbuch beschreibt, wie es von Hand geht.</translation>
    </message>
</context>
<context>
    <name>pinorama::AppController</name>
    <message>
        <source>Files cannot be opened: the program pinorama-opener does not start.</source>
        <translation>Dateien können nicht geöffnet werden: Das Programm pinorama-opener startet nicht.</translation>
    </message>
    <message>
        <source>Pictures cannot be read: the program pinorama-reader does not start.</source>
        <translation>Bilder können nicht gelesen werden: Das Programm pinorama-reader startet nicht.</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <extracomment>Reads the file again that is shown</extracomment>
        <translation>&amp;Neu einlesen</translation>
    </message>
</context>
<context>
    <name>pinorama::CopyMenu</name>
    <message>
        <source>Copy &amp;It As</source>
        <extracomment>The menu of the forms in which a place can be copied</extracomment>
        <translation>Kop&amp;ieren als</translation>
    </message>
    <message>
        <source>As Shown</source>
        <translation>Wie angezeigt</translation>
    </message>
    <message>
        <source>Decimal Degrees</source>
        <translation>Dezimalgrad</translation>
    </message>
    <message>
        <source>Degrees and Decimal Minutes</source>
        <translation>Grad und Dezimalminuten</translation>
    </message>
    <message>
        <source>geo: Address</source>
        <extracomment>An address that begins with &quot;geo:&quot;, which map programs take</extracomment>
        <translation>geo:-Adresse</translation>
    </message>
    <message>
        <source>Place in Words</source>
        <extracomment>Copies &quot;Near Ushuaia, Argentina&quot;</extracomment>
        <translation>Ort in Worten</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <extracomment>%1 is a map service, such as OpenStreetMap</extracomment>
        <translation>Link zu %1</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportDialog</name>
    <message>
        <source>KML files (*.kml)</source>
        <translation>KML-Dateien (*.kml)</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportNotice</name>
    <message>
        <source>the disk is full.</source>
        <translation>der Datenträger ist voll.</translation>
    </message>
    <message>
        <source>writing there is not allowed.</source>
        <translation>das Schreiben ist dort nicht erlaubt.</translation>
    </message>
    <message>
        <source>there is no such folder.</source>
        <translation>diesen Ordner gibt es nicht.</translation>
    </message>
    <message>
        <source>a folder has that name.</source>
        <translation>ein Ordner hat diesen Namen.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1 was saved.</source>
        <extracomment>%1 is the name of a file that was written</extracomment>
        <translation>%1 wurde gespeichert.</translation>
    </message>
    <message>
        <source>Show in Fo&amp;lder</source>
        <extracomment>A button: shows the file in the file manager</extracomment>
        <translation>Im &amp;Ordner zeigen</translation>
    </message>
    <message>
        <source>the disk does not answer.</source>
        <translation>der Datenträger antwortet nicht.</translation>
    </message>
</context>
<context>
    <name>pinorama::MainWindow</name>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>The picture has a location</source>
        <translation>Das Bild verrät, wo es aufgenommen wurde</translation>
    </message>
    <message>
        <source>Opens the location in a web map</source>
        <translation>Öffnet den Ort in einer Karte im Internet</translation>
    </message>
    <message>
        <source>Map Services</source>
        <translation>Kartendienste</translation>
    </message>
    <message>
        <source>Flies the globe program to the location</source>
        <translation>Fliegt im Globusprogramm zum Ort</translation>
    </message>
    <message>
        <source>Show in &amp;Globe</source>
        <translation>Im &amp;Globus zeigen</translation>
    </message>
    <message>
        <source>Finds all catalogued pictures taken within 2000 m</source>
        <translation>Findet alle katalogisierten Bilder im Umkreis von 2000 m</translation>
    </message>
    <message>
        <source>&amp;Find in Skallion</source>
        <translation>In Skallion s&amp;uchen</translation>
    </message>
    <message>
        <source>Writes the location as a placemark file</source>
        <translation>Schreibt den Ort als Ortsmarke in eine Datei</translation>
    </message>
    <message>
        <source>&amp;Export as KML…</source>
        <translation>Als KML &amp;exportieren …</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Select a picture, or drop one here</source>
        <translation>Bild auswählen oder hierher ziehen</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Größe:</translation>
    </message>
    <message>
        <source>Modified:</source>
        <translation>Geändert:</translation>
    </message>
    <message>
        <source>Created:</source>
        <translation>Erstellt:</translation>
    </message>
    <message>
        <source>Coordinate:</source>
        <translation>Koordinate:</translation>
    </message>
    <message>
        <source>Altitude:</source>
        <translation>Höhe:</translation>
    </message>
    <message>
        <source>Direction:</source>
        <translation>Richtung:</translation>
    </message>
    <message>
        <source>City:</source>
        <translation>Ort:</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>Bundesland:</translation>
    </message>
    <message>
        <source>Country:</source>
        <translation>Land:</translation>
    </message>
    <message>
        <source>Caption:</source>
        <translation>Beschreibung:</translation>
    </message>
    <message>
        <source>Always shows the picture selected in the file manager</source>
        <translation>Zeigt stets das Bild, das in der Dateiverwaltung ausgewählt ist</translation>
    </message>
    <message>
        <source>Follow the &amp;selection in the file manager</source>
        <translation>Der &amp;Auswahl in der Dateiverwaltung folgen</translation>
    </message>
    <message>
        <source>&amp;Picture</source>
        <translation>&amp;Bild</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen …</translation>
    </message>
    <message>
        <source>Open in &amp;Map Service</source>
        <translation>In &amp;Kartendienst öffnen</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>Fenster &amp;schließen</translation>
    </message>
    <message>
        <source>&amp;Quit Pinorama</source>
        <translation>Pinorama &amp;beenden</translation>
    </message>
    <message>
        <source>Pinorama &amp;Home Page</source>
        <translation>&amp;Internetseite von Pinorama</translation>
    </message>
    <message>
        <source>&amp;Donate…</source>
        <translation>&amp;Spenden …</translation>
    </message>
    <message>
        <source>&amp;About Pinorama</source>
        <translation>Ü&amp;ber Pinorama</translation>
    </message>
    <message>
        <source>Cop&amp;y Coordinate</source>
        <translation>K&amp;oordinate kopieren</translation>
    </message>
    <message>
        <source>Copy as &amp;Decimal Degrees</source>
        <translation>Als &amp;Dezimalgrad kopieren</translation>
    </message>
    <message>
        <source>Pinorama &amp;Manual</source>
        <translation>&amp;Handbuch zu Pinorama</translation>
    </message>
    <message>
        <source>Place</source>
        <extracomment>What a screen reader says before the place in words.</extracomment>
        <translation>Ort</translation>
    </message>
    <message>
        <source>A click shows more of the surroundings, or less</source>
        <extracomment>Of the small map.</extracomment>
        <translation>Ein Klick zeigt mehr oder weniger von der Umgebung</translation>
    </message>
    <message>
        <source>&amp;Read More Kinds of Files</source>
        <translation>Mehr Dateiarten &amp;lesen</translation>
    </message>
    <message>
        <source>Taken:</source>
        <extracomment>The time at which the picture was taken.</extracomment>
        <translation>Aufgenommen:</translation>
    </message>
</context>
<context>
    <name>pinorama::Notice</name>
    <message>
        <source>&amp;Dismiss</source>
        <translation>Ausb&amp;lenden</translation>
    </message>
</context>
<context>
    <name>pinorama::PathIntake</name>
    <message>
        <source>Open Picture</source>
        <translation>Bild öffnen</translation>
    </message>
</context>
<context>
    <name>pinorama::ReadingNotice</name>
    <message>
        <source>Still reading %1...</source>
        <translation>%1 wird noch gelesen...</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>%1 konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <translation>%1 antwortet nicht.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 could not be read.</source>
        <translation>Die XMP-Datei neben %1 konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 does not answer.</source>
        <translation>Die XMP-Datei neben %1 antwortet nicht.</translation>
    </message>
</context>
<context>
    <name>pinorama::PictureWords</name>
    <message>
        <source>%1 is a folder.</source>
        <extracomment>The foot of the window; so are the others. %1 is the name of the file that is shown</extracomment>
        <translation>%1 ist ein Ordner.</translation>
    </message>
    <message>
        <source>%1 is no file that can be read.</source>
        <extracomment>A pipe or a device</extracomment>
        <translation>%1 ist keine Datei, die sich lesen lässt.</translation>
    </message>
    <message>
        <source>Files of this type are not read: JPEG and the raw files of cameras are.</source>
        <translation>Dateien dieser Art werden nicht gelesen, nur JPEG und Rohdateien von Kameras.</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <translation>Es gibt keine Datei %1.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1.</source>
        <translation>Sie dürfen %1 nicht lesen.</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2.</source>
        <extracomment>%2 is the system&apos;s reason, such as &quot;Input/output error&quot;</extracomment>
        <translation>%1 kann nicht geöffnet werden: %2.</translation>
    </message>
    <message>
        <source>This picture does not say where it was taken.</source>
        <translation>Dieses Bild verrät nicht, wo es aufgenommen wurde.</translation>
    </message>
    <message>
        <source>Several files are selected; the window shows one at a time.</source>
        <translation>Mehrere Dateien sind ausgewählt; das Fenster zeigt immer nur eine.</translation>
    </message>
</context>
<context>
    <name>pinorama::MoreKinds</name>
    <message>
        <source>From Exif</source>
        <translation>Aus Exif</translation>
    </message>
    <message>
        <source>From IPTC</source>
        <translation>Aus IPTC</translation>
    </message>
    <message>
        <source>From XMP in the file</source>
        <translation>Aus XMP in der Datei</translation>
    </message>
    <message>
        <source>From the video</source>
        <translation>Aus dem Video</translation>
    </message>
    <message>
        <source>From the XMP file beside it</source>
        <translation>Aus der XMP-Datei daneben</translation>
    </message>
    <message>
        <source>Read Them</source>
        <translation>Lesen</translation>
    </message>
    <message>
        <source>%1 pictures can be read, too.</source>
        <translation>%1-Bilder können auch gelesen werden.</translation>
    </message>
    <message>
        <source>%1 videos can be read, too.</source>
        <translation>%1-Videos können auch gelesen werden.</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyModel</name>
    <message>
        <source>same place</source>
        <translation>gleiche Stelle</translation>
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
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Pictures Nearby</source>
        <extracomment>Title of the window</extracomment>
        <translation>Bilder in der Nähe</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <extracomment>Context menu: opens the picture in the program for it</extracomment>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Within %1 m of %2</source>
        <extracomment>Above the pictures that were found; %2 is the name of a file</extracomment>
        <translation>Im Umkreis von %1&#xa0;m um %2</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Suche läuft...</translation>
    </message>
    <message>
        <source>Searching... Pictures found so far: %1</source>
        <translation>Suche läuft... Bisher gefundene Bilder: %1</translation>
    </message>
    <message>
        <source>Stopped. Pictures found until then: %1</source>
        <translation>Abgebrochen. Bis dahin gefundene Bilder: %1</translation>
    </message>
    <message>
        <source>The search ended too early. Pictures found until then: %1</source>
        <translation>Die Suche endete vorzeitig. Bis dahin gefundene Bilder: %1</translation>
    </message>
    <message>
        <source>Pictures cannot be searched: the program pinorama-search does not start.</source>
        <translation>Bilder können nicht durchsucht werden: Das Programm pinorama-search startet nicht.</translation>
    </message>
    <message>
        <source>Pictures found: %1. The nearest %2 are shown.</source>
        <translation>Gefundene Bilder: %1. Gezeigt werden die nächsten %2.</translation>
    </message>
    <message>
        <source>Pictures found: %1</source>
        <translation>Gefundene Bilder: %1</translation>
    </message>
    <message>
        <source>No other picture within %1 m was found in these folders:
%2</source>
        <extracomment>%2 is a list of folders</extracomment>
        <translation>Im Umkreis von %1&#xa0;m gibt es kein anderes Bild in diesen Ordnern:
%2</translation>
    </message>
    <message>
        <source>Open &amp;With...</source>
        <extracomment>Context menu: has the user choose the program</extracomment>
        <translation>Öffnen &amp;mit...</translation>
    </message>
</context>
<context>
    <name>pinorama::PlaceActions</name>
    <message>
        <source>The globe program cannot be started.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>Das Globusprogramm lässt sich nicht starten.</translation>
    </message>
    <message>
        <source>Needs Marble, Google Earth or another program that opens KML files</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Braucht Marble, Google Earth oder ein anderes Programm, das KML-Dateien öffnet</translation>
    </message>
    <message>
        <source>Without Skallion, pictures nearby are looked for in the folders around this one</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Ohne Skallion wird in den Ordnern ringsum nach Bildern aus der Nähe gesucht</translation>
    </message>
</context>
<context>
    <name>pinorama::SayingOpener</name>
    <message>
        <source>No web browser is installed.</source>
        <extracomment>The foot of the window; so are the others</extracomment>
        <translation>Es ist kein Browser installiert.</translation>
    </message>
    <message>
        <source>No program opens geo: addresses. Marble and GNOME Maps do.</source>
        <extracomment>&quot;geo:&quot; is the beginning of an address; the names are those of programs</extracomment>
        <translation>Kein Programm öffnet geo:-Adressen. Marble und GNOME-Karten tun es.</translation>
    </message>
    <message>
        <source>No program opens KML files. Marble and Google Earth do.</source>
        <translation>Kein Programm öffnet KML-Dateien. Marble und Google Earth tun es.</translation>
    </message>
    <message>
        <source>No program opens addresses that begin with %1:.</source>
        <extracomment>%1 is the beginning of an address, such as &quot;om&quot;</extracomment>
        <translation>Kein Programm öffnet Adressen, die mit %1: beginnen.</translation>
    </message>
</context>
<context>
    <name>pinorama::StaleFields</name>
    <message>
        <source>from %1</source>
        <extracomment>Of a text that belongs to an earlier picture; %1 is the name of that</extracomment>
        <translation>aus %1</translation>
    </message>
</context>
</TS>
