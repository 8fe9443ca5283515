<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Pinorama</source>
        <translation>Acerca de Pinorama</translation>
    </message>
    <message>
        <source>Shows where the picture selected in the file manager was taken.</source>
        <translation>Indica dónde se tomó la foto seleccionada en el gestor de archivos.</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes with no warranty.</source>
        <translation>Software libre bajo la Licencia Pública General de GNU, versión 3 o posterior. Se distribuye sin ninguna garantía.</translation>
    </message>
    <message>
        <source>Made with these libraries:</source>
        <translation>Bibliotecas utilizadas:</translation>
    </message>
    <message>
        <source>Places and map are made from:</source>
        <translation>Fuentes de los lugares y del mapa:</translation>
    </message>
</context>
<context>
    <name>pinorama::AccessibilityNotice</name>
    <message>
        <source>S&amp;witch On</source>
        <translation>&amp;Activar</translation>
    </message>
    <message>
        <source>Pinorama can follow the selection in %1 once accessibility is on. This is a permanent setting of your desktop; restart the file manager after switching it on.</source>
        <translation>La selección en %1 se podrá seguir cuando la accesibilidad esté activada. Es un ajuste permanente del escritorio; después hay que reiniciar el gestor de archivos.</translation>
    </message>
    <message>
        <source>Accessibility is on. Restart %1 or log in again; Pinorama then follows its selection.</source>
        <translation>La accesibilidad está activada. Reinicie %1, o vuelva a iniciar sesión, para seguir su selección.</translation>
    </message>
    <message>
        <source>Accessibility could not be switched on. The manual explains how to do it by hand.</source>
        <translation>No se pudo activar la accesibilidad. El manual explica cómo hacerlo a mano.</translation>
    </message>
</context>
<context>
    <name>pinorama::AppController</name>
    <message>
        <source>Files cannot be opened: the program pinorama-opener does not start.</source>
        <translation>No se pueden abrir los archivos: el programa pinorama-opener no se inicia.</translation>
    </message>
    <message>
        <source>Pictures cannot be read: the program pinorama-reader does not start.</source>
        <translation>No se pueden leer las fotos: el programa pinorama-reader no se inicia.</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <extracomment>Reads the file again that is shown</extracomment>
        <translation>&amp;Recargar</translation>
    </message>
</context>
<context>
    <name>pinorama::CopyMenu</name>
    <message>
        <source>Copy &amp;It As</source>
        <extracomment>The menu of the forms in which a place can be copied</extracomment>
        <translation>Copiar c&amp;omo</translation>
    </message>
    <message>
        <source>As Shown</source>
        <translation>Como se muestra</translation>
    </message>
    <message>
        <source>Decimal Degrees</source>
        <translation>Grados decimales</translation>
    </message>
    <message>
        <source>Degrees and Decimal Minutes</source>
        <translation>Grados y minutos decimales</translation>
    </message>
    <message>
        <source>geo: Address</source>
        <extracomment>An address that begins with &quot;geo:&quot;, which map programs take</extracomment>
        <translation>Dirección «geo:»</translation>
    </message>
    <message>
        <source>Place in Words</source>
        <extracomment>Copies &quot;Near Ushuaia, Argentina&quot;</extracomment>
        <translation>Lugar en palabras</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <extracomment>%1 is a map service, such as OpenStreetMap</extracomment>
        <translation>Enlace a %1</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportDialog</name>
    <message>
        <source>KML files (*.kml)</source>
        <translation>Archivos KML (*.kml)</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportNotice</name>
    <message>
        <source>the disk is full.</source>
        <translation>el disco está lleno.</translation>
    </message>
    <message>
        <source>writing there is not allowed.</source>
        <translation>no se permite escribir ahí.</translation>
    </message>
    <message>
        <source>there is no such folder.</source>
        <translation>esa carpeta no existe.</translation>
    </message>
    <message>
        <source>a folder has that name.</source>
        <translation>una carpeta tiene ese nombre.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>No se pudo escribir %1: %2</translation>
    </message>
    <message>
        <source>%1 was saved.</source>
        <extracomment>%1 is the name of a file that was written</extracomment>
        <translation>Se guardó %1.</translation>
    </message>
    <message>
        <source>Show in Fo&amp;lder</source>
        <extracomment>A button: shows the file in the file manager</extracomment>
        <translation>Ver en la ca&amp;rpeta</translation>
    </message>
    <message>
        <source>the disk does not answer.</source>
        <translation>el disco no responde.</translation>
    </message>
</context>
<context>
    <name>pinorama::MainWindow</name>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
    </message>
    <message>
        <source>The picture has a location</source>
        <translation>La foto indica dónde se tomó</translation>
    </message>
    <message>
        <source>Opens the location in a web map</source>
        <translation>Abre el lugar en un mapa web</translation>
    </message>
    <message>
        <source>Map Services</source>
        <translation>Servicios de mapas</translation>
    </message>
    <message>
        <source>Flies the globe program to the location</source>
        <translation>Vuela hasta el lugar en el globo terráqueo</translation>
    </message>
    <message>
        <source>Show in &amp;Globe</source>
        <translation>Ver en el &amp;globo</translation>
    </message>
    <message>
        <source>Finds all catalogued pictures taken within 2000 m</source>
        <translation>Busca todas las fotos catalogadas tomadas a menos de 2000&#xa0;m</translation>
    </message>
    <message>
        <source>&amp;Find in Skallion</source>
        <translation>&amp;Buscar en Skallion</translation>
    </message>
    <message>
        <source>Writes the location as a placemark file</source>
        <translation>Guarda el lugar como marca de posición en un archivo</translation>
    </message>
    <message>
        <source>&amp;Export as KML…</source>
        <translation>&amp;Exportar como KML…</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nombre:</translation>
    </message>
    <message>
        <source>Select a picture, or drop one here</source>
        <translation>Seleccione una foto o suéltela aquí</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Tamaño:</translation>
    </message>
    <message>
        <source>Modified:</source>
        <translation>Modificado:</translation>
    </message>
    <message>
        <source>Created:</source>
        <translation>Creado:</translation>
    </message>
    <message>
        <source>Coordinate:</source>
        <translation>Coordenadas:</translation>
    </message>
    <message>
        <source>Altitude:</source>
        <translation>Altitud:</translation>
    </message>
    <message>
        <source>Direction:</source>
        <translation>Dirección:</translation>
    </message>
    <message>
        <source>City:</source>
        <translation>Ciudad:</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>Provincia:</translation>
    </message>
    <message>
        <source>Country:</source>
        <translation>País:</translation>
    </message>
    <message>
        <source>Caption:</source>
        <translation>Descripción:</translation>
    </message>
    <message>
        <source>Always shows the picture selected in the file manager</source>
        <translation>Muestra siempre la foto seleccionada en el gestor de archivos</translation>
    </message>
    <message>
        <source>Follow the &amp;selection in the file manager</source>
        <translation>Seguir la &amp;selección del gestor de archivos</translation>
    </message>
    <message>
        <source>&amp;Picture</source>
        <translation>&amp;Foto</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>A&amp;yuda</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Abrir…</translation>
    </message>
    <message>
        <source>Open in &amp;Map Service</source>
        <translation>Abrir en un servicio de &amp;mapas</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>&amp;Cerrar la ventana</translation>
    </message>
    <message>
        <source>&amp;Quit Pinorama</source>
        <translation>&amp;Salir de Pinorama</translation>
    </message>
    <message>
        <source>Pinorama &amp;Home Page</source>
        <translation>Página &amp;web de Pinorama</translation>
    </message>
    <message>
        <source>&amp;Donate…</source>
        <translation>&amp;Donar…</translation>
    </message>
    <message>
        <source>&amp;About Pinorama</source>
        <translation>&amp;Acerca de Pinorama</translation>
    </message>
    <message>
        <source>Cop&amp;y Coordinate</source>
        <translation>Cop&amp;iar las coordenadas</translation>
    </message>
    <message>
        <source>Copy as &amp;Decimal Degrees</source>
        <translation>Copiar en grados &amp;decimales</translation>
    </message>
    <message>
        <source>Pinorama &amp;Manual</source>
        <translation>&amp;Manual de Pinorama</translation>
    </message>
    <message>
        <source>Place</source>
        <extracomment>What a screen reader says before the place in words.</extracomment>
        <translation>Lugar</translation>
    </message>
    <message>
        <source>A click shows more of the surroundings, or less</source>
        <extracomment>Of the small map.</extracomment>
        <translation>Un clic muestra más o menos de los alrededores</translation>
    </message>
    <message>
        <source>&amp;Read More Kinds of Files</source>
        <translation>Leer más &amp;tipos de archivos</translation>
    </message>
    <message>
        <source>Taken:</source>
        <extracomment>The time at which the picture was taken.</extracomment>
        <translation>Tomada:</translation>
    </message>
</context>
<context>
    <name>pinorama::Notice</name>
    <message>
        <source>&amp;Dismiss</source>
        <translation>&amp;Ocultar</translation>
    </message>
</context>
<context>
    <name>pinorama::PathIntake</name>
    <message>
        <source>Open Picture</source>
        <translation>Abrir foto</translation>
    </message>
</context>
<context>
    <name>pinorama::ReadingNotice</name>
    <message>
        <source>Still reading %1...</source>
        <translation>Aún se está leyendo %1...</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>No se pudo leer %1.</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <translation>%1 no responde.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 could not be read.</source>
        <translation>No se pudo leer el archivo XMP contiguo a %1.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 does not answer.</source>
        <translation>El archivo XMP contiguo a %1 no responde.</translation>
    </message>
</context>
<context>
    <name>pinorama::PictureWords</name>
    <message>
        <source>%1 is a folder.</source>
        <extracomment>The foot of the window; so are the others. %1 is the name of the file that is shown</extracomment>
        <translation>%1 es una carpeta.</translation>
    </message>
    <message>
        <source>%1 is no file that can be read.</source>
        <extracomment>A pipe or a device</extracomment>
        <translation>%1 no es un archivo que se pueda leer.</translation>
    </message>
    <message>
        <source>Files of this type are not read: JPEG and the raw files of cameras are.</source>
        <translation>Los archivos de este tipo no se leen: solo JPEG y los archivos RAW de las cámaras.</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <translation>No hay ningún archivo %1.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1.</source>
        <translation>No tiene permiso para leer %1.</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2.</source>
        <extracomment>%2 is the system&apos;s reason, such as &quot;Input/output error&quot;</extracomment>
        <translation>No se puede abrir %1: %2.</translation>
    </message>
    <message>
        <source>This picture does not say where it was taken.</source>
        <translation>Esta foto no indica dónde se tomó.</translation>
    </message>
    <message>
        <source>Several files are selected; the window shows one at a time.</source>
        <translation>Hay varios archivos seleccionados; la ventana muestra uno cada vez.</translation>
    </message>
</context>
<context>
    <name>pinorama::MoreKinds</name>
    <message>
        <source>From Exif</source>
        <translation>De Exif</translation>
    </message>
    <message>
        <source>From IPTC</source>
        <translation>De IPTC</translation>
    </message>
    <message>
        <source>From XMP in the file</source>
        <translation>De XMP en el archivo</translation>
    </message>
    <message>
        <source>From the video</source>
        <translation>Del vídeo</translation>
    </message>
    <message>
        <source>From the XMP file beside it</source>
        <translation>Del archivo XMP contiguo</translation>
    </message>
    <message>
        <source>Read Them</source>
        <translation>Leerlas</translation>
    </message>
    <message>
        <source>%1 pictures can be read, too.</source>
        <translation>También se pueden leer fotos %1.</translation>
    </message>
    <message>
        <source>%1 videos can be read, too.</source>
        <translation>También se pueden leer vídeos %1.</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyModel</name>
    <message>
        <source>same place</source>
        <translation>mismo lugar</translation>
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
        <translation>&amp;Detener</translation>
    </message>
    <message>
        <source>Pictures Nearby</source>
        <extracomment>Title of the window</extracomment>
        <translation>Fotos cercanas</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <extracomment>Context menu: opens the picture in the program for it</extracomment>
        <translation>&amp;Abrir</translation>
    </message>
    <message>
        <source>Within %1 m of %2</source>
        <extracomment>Above the pictures that were found; %2 is the name of a file</extracomment>
        <translation>A menos de %1&#xa0;m de %2</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Buscando...</translation>
    </message>
    <message>
        <source>Searching... Pictures found so far: %1</source>
        <translation>Buscando... Fotos encontradas hasta ahora: %1</translation>
    </message>
    <message>
        <source>Stopped. Pictures found until then: %1</source>
        <translation>Detenido. Fotos encontradas hasta entonces: %1</translation>
    </message>
    <message>
        <source>The search ended too early. Pictures found until then: %1</source>
        <translation>La búsqueda terminó antes de tiempo. Fotos encontradas hasta entonces: %1</translation>
    </message>
    <message>
        <source>Pictures cannot be searched: the program pinorama-search does not start.</source>
        <translation>No se pueden buscar fotos: el programa pinorama-search no se inicia.</translation>
    </message>
    <message>
        <source>Pictures found: %1. The nearest %2 are shown.</source>
        <translation>Fotos encontradas: %1. Se muestran las %2 más cercanas.</translation>
    </message>
    <message>
        <source>Pictures found: %1</source>
        <translation>Fotos encontradas: %1</translation>
    </message>
    <message>
        <source>No other picture within %1 m was found in these folders:
%2</source>
        <extracomment>%2 is a list of folders</extracomment>
        <translation>No se encontró ninguna otra foto a menos de %1&#xa0;m en estas carpetas:
%2</translation>
    </message>
    <message>
        <source>Open &amp;With...</source>
        <extracomment>Context menu: has the user choose the program</extracomment>
        <translation>Abrir &amp;con...</translation>
    </message>
</context>
<context>
    <name>pinorama::PlaceActions</name>
    <message>
        <source>The globe program cannot be started.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>No se puede iniciar el globo terráqueo.</translation>
    </message>
    <message>
        <source>Needs Marble, Google Earth or another program that opens KML files</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Necesita Marble, Google Earth u otro programa que abra archivos KML</translation>
    </message>
    <message>
        <source>Without Skallion, pictures nearby are looked for in the folders around this one</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Sin Skallion se buscan imágenes cercanas en las carpetas de alrededor</translation>
    </message>
</context>
<context>
    <name>pinorama::SayingOpener</name>
    <message>
        <source>No web browser is installed.</source>
        <extracomment>The foot of the window; so are the others</extracomment>
        <translation>No hay ningún navegador web instalado.</translation>
    </message>
    <message>
        <source>No program opens geo: addresses. Marble and GNOME Maps do.</source>
        <extracomment>&quot;geo:&quot; is the beginning of an address; the names are those of programs</extracomment>
        <translation>Ningún programa abre direcciones geo:. Marble y Mapas de GNOME lo hacen.</translation>
    </message>
    <message>
        <source>No program opens KML files. Marble and Google Earth do.</source>
        <translation>Ningún programa abre archivos KML. Marble y Google Earth lo hacen.</translation>
    </message>
    <message>
        <source>No program opens addresses that begin with %1:.</source>
        <extracomment>%1 is the beginning of an address, such as &quot;om&quot;</extracomment>
        <translation>Ningún programa abre direcciones que empiecen por %1:.</translation>
    </message>
</context>
<context>
    <name>pinorama::StaleFields</name>
    <message>
        <source>from %1</source>
        <extracomment>Of a text that belongs to an earlier picture; %1 is the name of that</extracomment>
        <translation>de %1</translation>
    </message>
</context>
</TS>
