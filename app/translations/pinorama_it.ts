<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it_IT" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Pinorama</source>
        <translation>Informazioni su Pinorama</translation>
    </message>
    <message>
        <source>Shows where the picture selected in the file manager was taken.</source>
        <translation>Mostra dove è stata scattata la foto selezionata nel gestore file.</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes with no warranty.</source>
        <translation>Software libero con licenza GNU General Public License, versione 3 o successiva. Distribuito senza alcuna garanzia.</translation>
    </message>
    <message>
        <source>Made with these libraries:</source>
        <translation>Librerie utilizzate:</translation>
    </message>
    <message>
        <source>Places and map are made from:</source>
        <translation>Fonti dei luoghi e della mappa:</translation>
    </message>
</context>
<context>
    <name>pinorama::AccessibilityNotice</name>
    <message>
        <source>S&amp;witch On</source>
        <translation>Atti&amp;va</translation>
    </message>
    <message>
        <source>Pinorama can follow the selection in %1 once accessibility is on. This is a permanent setting of your desktop; restart the file manager after switching it on.</source>
        <translation>La selezione in %1 può essere seguita quando l’accessibilità è attiva. È un’impostazione permanente del desktop; dopo averla attivata, riavvia il gestore file.</translation>
    </message>
    <message>
        <source>Accessibility is on. Restart %1 or log in again; Pinorama then follows its selection.</source>
        <translation>L’accessibilità è attiva. Riavvia %1, o accedi di nuovo, per seguirne la selezione.</translation>
    </message>
    <message>
        <source>Accessibility could not be switched on. The manual explains how to do it by hand.</source>
        <translation>Impossibile attivare l’accessibilità. Il manuale spiega come farlo a mano.</translation>
    </message>
</context>
<context>
    <name>pinorama::AppController</name>
    <message>
        <source>Files cannot be opened: the program pinorama-opener does not start.</source>
        <translation>Impossibile aprire i file: il programma pinorama-opener non si avvia.</translation>
    </message>
    <message>
        <source>Pictures cannot be read: the program pinorama-reader does not start.</source>
        <translation>Impossibile leggere le foto: il programma pinorama-reader non si avvia.</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <extracomment>Reads the file again that is shown</extracomment>
        <translation>&amp;Ricarica</translation>
    </message>
</context>
<context>
    <name>pinorama::CopyMenu</name>
    <message>
        <source>Copy &amp;It As</source>
        <extracomment>The menu of the forms in which a place can be copied</extracomment>
        <translation>Co&amp;pia come</translation>
    </message>
    <message>
        <source>As Shown</source>
        <translation>Come mostrato</translation>
    </message>
    <message>
        <source>Decimal Degrees</source>
        <translation>Gradi decimali</translation>
    </message>
    <message>
        <source>Degrees and Decimal Minutes</source>
        <translation>Gradi e minuti decimali</translation>
    </message>
    <message>
        <source>geo: Address</source>
        <extracomment>An address that begins with &quot;geo:&quot;, which map programs take</extracomment>
        <translation>Indirizzo "geo:"</translation>
    </message>
    <message>
        <source>Place in Words</source>
        <extracomment>Copies &quot;Near Ushuaia, Argentina&quot;</extracomment>
        <translation>Luogo in parole</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <extracomment>%1 is a map service, such as OpenStreetMap</extracomment>
        <translation>Collegamento a %1</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportDialog</name>
    <message>
        <source>KML files (*.kml)</source>
        <translation>File KML (*.kml)</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportNotice</name>
    <message>
        <source>the disk is full.</source>
        <translation>il disco è pieno.</translation>
    </message>
    <message>
        <source>writing there is not allowed.</source>
        <translation>non è consentito scrivere lì.</translation>
    </message>
    <message>
        <source>there is no such folder.</source>
        <translation>quella cartella non esiste.</translation>
    </message>
    <message>
        <source>a folder has that name.</source>
        <translation>una cartella ha quel nome.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>Impossibile scrivere %1: %2</translation>
    </message>
    <message>
        <source>%1 was saved.</source>
        <extracomment>%1 is the name of a file that was written</extracomment>
        <translation>%1 è stato salvato.</translation>
    </message>
    <message>
        <source>Show in Fo&amp;lder</source>
        <extracomment>A button: shows the file in the file manager</extracomment>
        <translation>Mostra nella ca&amp;rtella</translation>
    </message>
    <message>
        <source>the disk does not answer.</source>
        <translation>il disco non risponde.</translation>
    </message>
</context>
<context>
    <name>pinorama::MainWindow</name>
    <message>
        <source>Preview</source>
        <translation>Anteprima</translation>
    </message>
    <message>
        <source>The picture has a location</source>
        <translation>La foto indica dove è stata scattata</translation>
    </message>
    <message>
        <source>Opens the location in a web map</source>
        <translation>Apre il luogo in una mappa web</translation>
    </message>
    <message>
        <source>Map Services</source>
        <translation>Servizi di mappe</translation>
    </message>
    <message>
        <source>Flies the globe program to the location</source>
        <translation>Vola sul luogo nel globo virtuale</translation>
    </message>
    <message>
        <source>Show in &amp;Globe</source>
        <translation>Mostra sul &amp;globo</translation>
    </message>
    <message>
        <source>Finds all catalogued pictures taken within 2000 m</source>
        <translation>Trova tutte le foto catalogate scattate entro 2000&#xa0;m</translation>
    </message>
    <message>
        <source>&amp;Find in Skallion</source>
        <translation>&amp;Cerca in Skallion</translation>
    </message>
    <message>
        <source>Writes the location as a placemark file</source>
        <translation>Salva il luogo come segnaposto in un file</translation>
    </message>
    <message>
        <source>&amp;Export as KML…</source>
        <translation>&amp;Esporta come KML…</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nome:</translation>
    </message>
    <message>
        <source>Select a picture, or drop one here</source>
        <translation>Seleziona una foto o trascinala qui</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Dimensione:</translation>
    </message>
    <message>
        <source>Modified:</source>
        <translation>Modificato:</translation>
    </message>
    <message>
        <source>Created:</source>
        <translation>Creato:</translation>
    </message>
    <message>
        <source>Coordinate:</source>
        <translation>Coordinate:</translation>
    </message>
    <message>
        <source>Altitude:</source>
        <translation>Altitudine:</translation>
    </message>
    <message>
        <source>Direction:</source>
        <translation>Direzione:</translation>
    </message>
    <message>
        <source>City:</source>
        <translation>Città:</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>Regione:</translation>
    </message>
    <message>
        <source>Country:</source>
        <translation>Paese:</translation>
    </message>
    <message>
        <source>Caption:</source>
        <translation>Didascalia:</translation>
    </message>
    <message>
        <source>Always shows the picture selected in the file manager</source>
        <translation>Mostra sempre la foto selezionata nel gestore file</translation>
    </message>
    <message>
        <source>Follow the &amp;selection in the file manager</source>
        <translation>Segui la &amp;selezione nel gestore file</translation>
    </message>
    <message>
        <source>&amp;Picture</source>
        <translation>&amp;Foto</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aiuto</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Apri…</translation>
    </message>
    <message>
        <source>Open in &amp;Map Service</source>
        <translation>Apri in un servizio di &amp;mappe</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>C&amp;hiudi finestra</translation>
    </message>
    <message>
        <source>&amp;Quit Pinorama</source>
        <translation>E&amp;sci da Pinorama</translation>
    </message>
    <message>
        <source>Pinorama &amp;Home Page</source>
        <translation>Sito &amp;web di Pinorama</translation>
    </message>
    <message>
        <source>&amp;Donate…</source>
        <translation>Fai una &amp;donazione…</translation>
    </message>
    <message>
        <source>&amp;About Pinorama</source>
        <translation>&amp;Informazioni su Pinorama</translation>
    </message>
    <message>
        <source>Cop&amp;y Coordinate</source>
        <translation>Copia c&amp;oordinate</translation>
    </message>
    <message>
        <source>Copy as &amp;Decimal Degrees</source>
        <translation>Copia in gradi &amp;decimali</translation>
    </message>
    <message>
        <source>Pinorama &amp;Manual</source>
        <translation>&amp;Manuale di Pinorama</translation>
    </message>
    <message>
        <source>Place</source>
        <extracomment>What a screen reader says before the place in words.</extracomment>
        <translation>Luogo</translation>
    </message>
    <message>
        <source>A click shows more of the surroundings, or less</source>
        <extracomment>Of the small map.</extracomment>
        <translation>Un clic mostra più o meno dei dintorni</translation>
    </message>
    <message>
        <source>&amp;Read More Kinds of Files</source>
        <translation>Leggi altri &amp;tipi di file</translation>
    </message>
    <message>
        <source>Taken:</source>
        <extracomment>The time at which the picture was taken.</extracomment>
        <translation>Scattata:</translation>
    </message>
</context>
<context>
    <name>pinorama::Notice</name>
    <message>
        <source>&amp;Dismiss</source>
        <translation>&amp;Nascondi</translation>
    </message>
</context>
<context>
    <name>pinorama::PathIntake</name>
    <message>
        <source>Open Picture</source>
        <translation>Apri foto</translation>
    </message>
</context>
<context>
    <name>pinorama::ReadingNotice</name>
    <message>
        <source>Still reading %1...</source>
        <translation>Lettura di %1 ancora in corso...</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>Non è stato possibile leggere %1.</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <translation>%1 non risponde.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 could not be read.</source>
        <translation>Non è stato possibile leggere il file XMP accanto a %1.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 does not answer.</source>
        <translation>Il file XMP accanto a %1 non risponde.</translation>
    </message>
</context>
<context>
    <name>pinorama::PictureWords</name>
    <message>
        <source>%1 is a folder.</source>
        <extracomment>The foot of the window; so are the others. %1 is the name of the file that is shown</extracomment>
        <translation>%1 è una cartella.</translation>
    </message>
    <message>
        <source>%1 is no file that can be read.</source>
        <extracomment>A pipe or a device</extracomment>
        <translation>%1 non è un file leggibile.</translation>
    </message>
    <message>
        <source>Files of this type are not read: JPEG and the raw files of cameras are.</source>
        <translation>I file di questo tipo non vengono letti: solo JPEG e i file RAW delle fotocamere.</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <translation>Non c’è nessun file %1.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1.</source>
        <translation>Non è consentito leggere %1.</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2.</source>
        <extracomment>%2 is the system&apos;s reason, such as &quot;Input/output error&quot;</extracomment>
        <translation>Impossibile aprire %1: %2.</translation>
    </message>
    <message>
        <source>This picture does not say where it was taken.</source>
        <translation>Questa foto non indica dove è stata scattata.</translation>
    </message>
    <message>
        <source>Several files are selected; the window shows one at a time.</source>
        <translation>Sono selezionati più file; la finestra ne mostra uno alla volta.</translation>
    </message>
</context>
<context>
    <name>pinorama::MoreKinds</name>
    <message>
        <source>From Exif</source>
        <translation>Da Exif</translation>
    </message>
    <message>
        <source>From IPTC</source>
        <translation>Da IPTC</translation>
    </message>
    <message>
        <source>From XMP in the file</source>
        <translation>Da XMP nel file</translation>
    </message>
    <message>
        <source>From the video</source>
        <translation>Dal video</translation>
    </message>
    <message>
        <source>From the XMP file beside it</source>
        <translation>Dal file XMP accanto</translation>
    </message>
    <message>
        <source>Read Them</source>
        <translation>Leggi</translation>
    </message>
    <message>
        <source>%1 pictures can be read, too.</source>
        <translation>Anche le foto %1 possono essere lette.</translation>
    </message>
    <message>
        <source>%1 videos can be read, too.</source>
        <translation>Anche i video %1 possono essere letti.</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyModel</name>
    <message>
        <source>same place</source>
        <translation>stesso punto</translation>
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
        <translation>&amp;Interrompi</translation>
    </message>
    <message>
        <source>Pictures Nearby</source>
        <extracomment>Title of the window</extracomment>
        <translation>Foto nelle vicinanze</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <extracomment>Context menu: opens the picture in the program for it</extracomment>
        <translation>&amp;Apri</translation>
    </message>
    <message>
        <source>Within %1 m of %2</source>
        <extracomment>Above the pictures that were found; %2 is the name of a file</extracomment>
        <translation>Entro %1&#xa0;m da %2</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Ricerca in corso...</translation>
    </message>
    <message>
        <source>Searching... Pictures found so far: %1</source>
        <translation>Ricerca in corso... Foto trovate finora: %1</translation>
    </message>
    <message>
        <source>Stopped. Pictures found until then: %1</source>
        <translation>Interrotta. Foto trovate fino a quel momento: %1</translation>
    </message>
    <message>
        <source>The search ended too early. Pictures found until then: %1</source>
        <translation>La ricerca è terminata in anticipo. Foto trovate fino a quel momento: %1</translation>
    </message>
    <message>
        <source>Pictures cannot be searched: the program pinorama-search does not start.</source>
        <translation>Impossibile cercare le foto: il programma pinorama-search non si avvia.</translation>
    </message>
    <message>
        <source>Pictures found: %1. The nearest %2 are shown.</source>
        <translation>Foto trovate: %1. Vengono mostrate le %2 più vicine.</translation>
    </message>
    <message>
        <source>Pictures found: %1</source>
        <translation>Foto trovate: %1</translation>
    </message>
    <message>
        <source>No other picture within %1 m was found in these folders:
%2</source>
        <extracomment>%2 is a list of folders</extracomment>
        <translation>Nessun’altra foto entro %1&#xa0;m è stata trovata in queste cartelle:
%2</translation>
    </message>
    <message>
        <source>Open &amp;With...</source>
        <extracomment>Context menu: has the user choose the program</extracomment>
        <translation>Apri c&amp;on...</translation>
    </message>
</context>
<context>
    <name>pinorama::PlaceActions</name>
    <message>
        <source>The globe program cannot be started.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>Impossibile avviare il globo virtuale.</translation>
    </message>
    <message>
        <source>Needs Marble, Google Earth or another program that opens KML files</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Richiede Marble, Google Earth o un altro programma che apra file KML</translation>
    </message>
    <message>
        <source>Without Skallion, pictures nearby are looked for in the folders around this one</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Senza Skallion le immagini vicine vengono cercate nelle cartelle intorno</translation>
    </message>
</context>
<context>
    <name>pinorama::SayingOpener</name>
    <message>
        <source>No web browser is installed.</source>
        <extracomment>The foot of the window; so are the others</extracomment>
        <translation>Non è installato nessun browser.</translation>
    </message>
    <message>
        <source>No program opens geo: addresses. Marble and GNOME Maps do.</source>
        <extracomment>&quot;geo:&quot; is the beginning of an address; the names are those of programs</extracomment>
        <translation>Nessun programma apre indirizzi geo:. Lo fanno Marble e Mappe di GNOME.</translation>
    </message>
    <message>
        <source>No program opens KML files. Marble and Google Earth do.</source>
        <translation>Nessun programma apre file KML. Lo fanno Marble e Google Earth.</translation>
    </message>
    <message>
        <source>No program opens addresses that begin with %1:.</source>
        <extracomment>%1 is the beginning of an address, such as &quot;om&quot;</extracomment>
        <translation>Nessun programma apre indirizzi che iniziano con %1:.</translation>
    </message>
</context>
<context>
    <name>pinorama::StaleFields</name>
    <message>
        <source>from %1</source>
        <extracomment>Of a text that belongs to an earlier picture; %1 is the name of that</extracomment>
        <translation>da %1</translation>
    </message>
</context>
</TS>
