<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl_PL" sourcelanguage="en_US">
<context>
    <name>Desktop</name>
    <message>
        <source>Picture Location Viewer</source>
        <extracomment>Kind of program, in the menu of programs</extracomment>
        <translation>Przeglądarka miejsca wykonania zdjęcia</translation>
    </message>
    <message>
        <source>See where the selected picture was taken</source>
        <extracomment>Tool tip of the program in the menu of programs</extracomment>
        <translation>Zobacz, gdzie wykonano zaznaczone zdjęcie</translation>
    </message>
    <message>
        <source>photo;picture;GPS;location;map;EXIF;IPTC;geotag;coordinates;KML;raw;</source>
        <extracomment>Words by which the program is found in the menu of programs; each ends with a semicolon. GPS, EXIF, IPTC and KML stay</extracomment>
        <translation>zdjęcie;obraz;GPS;miejsce;mapa;EXIF;IPTC;geotag;współrzędne;KML;raw;</translation>
    </message>
    <message>
        <source>Open the Home Page</source>
        <extracomment>Action of the program&apos;s icon in docks and menus</extracomment>
        <translation>Otwórz stronę domową</translation>
    </message>
    <message>
        <source>Donate</source>
        <extracomment>Action of the program&apos;s icon in docks and menus: give the makers money</extracomment>
        <translation>Wesprzyj</translation>
    </message>
    <message>
        <source>Show Where It Was Taken</source>
        <extracomment>Entry in the context menu of file managers, for a picture: shows its place in Pinorama</extracomment>
        <translation>Pokaż miejsce wykonania</translation>
    </message>
    <message>
        <source>Shows in Pinorama where the picture was taken</source>
        <extracomment>Tool tip of the entry &quot;Show Where It Was Taken&quot; in the context menu of file managers. Pinorama stays</extracomment>
        <translation>Pokazuje w programie Pinorama, gdzie wykonano zdjęcie</translation>
    </message>
    <message>
        <source>See where a picture was taken</source>
        <extracomment>Line under the program&apos;s name in software stores, without a full stop. At most 35 characters</extracomment>
        <translation>Zobacz, gdzie zrobiono zdjęcie</translation>
    </message>
    <message>
        <source>Hasselblad raw image</source>
        <extracomment>Kind of file, in file managers. Hasselblad stays</extracomment>
        <translation>Surowy obraz Hasselblad</translation>
    </message>
    <message>
        <source>Leaf raw image</source>
        <extracomment>Kind of file, in file managers. Leaf is a maker of cameras and stays</extracomment>
        <translation>Surowy obraz Leaf</translation>
    </message>
    <message>
        <source>Pentax raw image</source>
        <extracomment>Kind of file, in file managers. Pentax stays</extracomment>
        <translation>Surowy obraz Pentax</translation>
    </message>
    <message>
        <source>Pinorama keeps one small window open beside the file manager. Select a picture there, and the window shows where it was taken: in words and on a small map, with preview, size, dates, coordinate, altitude and direction of view. It reads JPEG and the raw formats of common cameras, and it needs no network.</source>
        <extracomment>What the program is for, in software stores. Pinorama and JPEG stay</extracomment>
        <translation>Pinorama trzyma otwarte małe okno obok menedżera plików. Zaznacz tam zdjęcie, a okno pokaże, gdzie je wykonano: słowami i na małej mapie, z podglądem, rozmiarem, datami, współrzędnymi, wysokością i kierunkiem patrzenia. Czyta JPEG i formaty surowe popularnych aparatów, a sieci nie potrzebuje.</translation>
    </message>
    <message>
        <source>From the window you can:</source>
        <extracomment>In software stores, above a list</extracomment>
        <translation>Z okna można:</translation>
    </message>
    <message>
        <source>Fly a globe program to the place</source>
        <extracomment>In the list below &quot;From the window you can:&quot;. Globe programs are such as Google Earth</extracomment>
        <translation>Przenieść widok globusa do tego miejsca</translation>
    </message>
    <message>
        <source>Open the place in a web map of your choice</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>Otworzyć miejsce w wybranej mapie internetowej</translation>
    </message>
    <message>
        <source>Save the place as a KML placemark</source>
        <extracomment>In the list below &quot;From the window you can:&quot;. KML is a kind of file and stays</extracomment>
        <translation>Zapisać miejsce jako znacznik KML</translation>
    </message>
    <message>
        <source>Copy the place as a coordinate, as a link or in words</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>Skopiować miejsce jako współrzędne, odnośnik lub słowami</translation>
    </message>
    <message>
        <source>Find the other pictures that were taken nearby</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>Znaleźć inne zdjęcia wykonane w pobliżu</translation>
    </message>
    <message>
        <source>Pictures are read in a separate, sandboxed process, so that a damaged or hostile file cannot harm the program.</source>
        <extracomment>The end of the description in software stores</extracomment>
        <translation>Zdjęcia czyta osobny, odizolowany proces, więc uszkodzony lub złośliwy plik nie może zaszkodzić programowi.</translation>
    </message>
    <message>
        <source>The Pinorama developers</source>
        <extracomment>The makers of the program, in software stores. Pinorama stays</extracomment>
        <translation>Twórcy programu Pinorama</translation>
    </message>
    <message>
        <source>The place of a picture in words and on a map</source>
        <extracomment>Below a picture of the window in software stores, without a full stop</extracomment>
        <translation>Miejsce zdjęcia słowami i na mapie</translation>
    </message>
    <message>
        <source>A raw file, with its direction of view</source>
        <extracomment>Below a picture of the window in software stores, without a full stop. It shows a file of a camera&apos;s own format</extracomment>
        <translation>Plik surowy z kierunkiem patrzenia</translation>
    </message>
    <message>
        <source>The window in a dark theme</source>
        <extracomment>Below a picture of the window in software stores, without a full stop</extracomment>
        <translation>Okno w ciemnym motywie</translation>
    </message>
    <message>
        <source>The first release. Pinorama:</source>
        <extracomment>What is new in version 1.0.0, in software stores, above a list</extracomment>
        <translation>Pierwsze wydanie. Pinorama:</translation>
    </message>
    <message>
        <source>follows the selection of Nautilus, Nemo, Caja, Thunar, Dolphin, PCManFM, PCManFM-Qt, SpaceFM and Krusader</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;, so that it goes on from there. The names stay</extracomment>
        <translation>śledzi zaznaczenie w programach Nautilus, Nemo, Caja, Thunar, Dolphin, PCManFM, PCManFM-Qt, SpaceFM i Krusader</translation>
    </message>
    <message>
        <source>reads JPEG and the raw formats of common cameras, and on request HEIC, videos and more</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;. HEIC and JPEG stay</extracomment>
        <translation>czyta JPEG i formaty surowe popularnych aparatów, a na życzenie także HEIC, filmy i inne pliki</translation>
    </message>
    <message>
        <source>says in words where a picture was taken and shows it on a small map, without a network</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;</extracomment>
        <translation>mówi słowami, gdzie wykonano zdjęcie, i pokazuje to na małej mapie, bez sieci</translation>
    </message>
    <message>
        <source>finds the pictures that were taken nearby</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;</extracomment>
        <translation>znajduje zdjęcia wykonane w pobliżu</translation>
    </message>
    <message>
        <source>prints the same facts in a terminal with pinorama-info, for one picture or thousands</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;. pinorama-info is the name of a program and stays</extracomment>
        <translation>wypisuje te same informacje w terminalu poleceniem pinorama-info, dla jednego zdjęcia lub tysięcy</translation>
    </message>
    <message>
        <source>Taken at</source>
        <extracomment>Column in the list view of file managers: the place where the picture was taken, in words</extracomment>
        <translation>Miejsce wykonania</translation>
    </message>
    <message>
        <source>The place where the picture was taken</source>
        <extracomment>Explains the column &quot;Taken at&quot; in the settings of file managers</extracomment>
        <translation>Miejsce, w którym wykonano zdjęcie</translation>
    </message>
</context>
<context>
    <name>GPS</name>
    <message>
        <source>OpenStreetMap</source>
        <comment>a1</comment>
        <extracomment>In the menu of map services: the name of a web map. Most languages keep it.</extracomment>
        <translation>OpenStreetMap</translation>
    </message>
    <message>
        <source>Google Maps</source>
        <comment>a2</comment>
        <extracomment>In the menu of map services: the name of a web map. Most languages keep it.</extracomment>
        <translation>Google Maps</translation>
    </message>
    <message>
        <source>Bing Maps</source>
        <comment>a3</comment>
        <extracomment>In the menu of map services: the name of a web map. Most languages keep it.</extracomment>
        <translation>Bing Maps</translation>
    </message>
    <message>
        <source>Apple Maps</source>
        <comment>a4</comment>
        <extracomment>In the menu of map services: the name of a web map. Most languages keep it.</extracomment>
        <translation>Apple Maps</translation>
    </message>
    <message>
        <source>OpenTopoMap</source>
        <comment>a5</comment>
        <extracomment>In the menu of map services: the name of a web map. Most languages keep it.</extracomment>
        <translation>OpenTopoMap</translation>
    </message>
    <message>
        <source>Street-level pictures (Mapillary)</source>
        <comment>a6</comment>
        <extracomment>In the menu of map services: opens pictures that people took of the streets around. Mapillary is a name and stays.</extracomment>
        <translation>Zdjęcia z poziomu ulicy (Mapillary)</translation>
    </message>
    <message>
        <source>Wikipedia articles nearby</source>
        <comment>a7</comment>
        <extracomment>In the menu of map services: opens the list of Wikipedia articles about places nearby.</extracomment>
        <translation>Artykuły Wikipedii w pobliżu</translation>
    </message>
    <message>
        <source>All map services (GeoHack)</source>
        <comment>a8</comment>
        <extracomment>In the menu of map services: opens a list of all web maps that show the place. GeoHack is a name and stays.</extracomment>
        <translation>Wszystkie serwisy map (GeoHack)</translation>
    </message>
    <message>
        <source>Map program of this computer</source>
        <comment>a9</comment>
        <extracomment>In the menu of map services: opens the place in the map program that is installed.</extracomment>
        <translation>Program z mapami na tym komputerze</translation>
    </message>
    <message>
        <source>Picture</source>
        <comment>picture</comment>
        <extracomment>The title of the mark on a web map. It becomes part of an address: only letters of English, no blanks. Languages with other letters have &quot;Photo&quot;.</extracomment>
        <translation>Foto</translation>
    </message>
</context>
<context>
    <name>Localizable</name>
    <message>
        <source> KB</source>
        <comment>STR#1001:46</comment>
        <extracomment>Unit of a file&apos;s size, in the window: kilobytes, megabytes, gigabytes, terabytes. It follows the number directly, so it begins with the space that the language wants there (&quot;1,024.0&quot; and &quot; KB&quot; give &quot;1,024.0 KB&quot;).</extracomment>
        <translation> KB</translation>
    </message>
    <message>
        <source> MB</source>
        <comment>STR#1001:3</comment>
        <extracomment>Unit of a file&apos;s size, in the window: kilobytes, megabytes, gigabytes, terabytes. It follows the number directly, so it begins with the space that the language wants there (&quot;1,024.0&quot; and &quot; KB&quot; give &quot;1,024.0 KB&quot;).</extracomment>
        <translation> MB</translation>
    </message>
    <message>
        <source> GB</source>
        <comment>STR#1001:31</comment>
        <extracomment>Unit of a file&apos;s size, in the window: kilobytes, megabytes, gigabytes, terabytes. It follows the number directly, so it begins with the space that the language wants there (&quot;1,024.0&quot; and &quot; KB&quot; give &quot;1,024.0 KB&quot;).</extracomment>
        <translation> GB</translation>
    </message>
    <message>
        <source> TB</source>
        <comment>STR#1001:123</comment>
        <extracomment>Unit of a file&apos;s size, in the window: kilobytes, megabytes, gigabytes, terabytes. It follows the number directly, so it begins with the space that the language wants there (&quot;1,024.0&quot; and &quot; KB&quot; give &quot;1,024.0 KB&quot;).</extracomment>
        <translation> TB</translation>
    </message>
    <message>
        <source>bytes</source>
        <comment>STR#1001:93</comment>
        <extracomment>In the window, after the exact count of a file&apos;s size: &quot;0.5 KB (512 bytes)&quot;. The count is mostly large.</extracomment>
        <translation>bajtów</translation>
    </message>
    <message>
        <source>%c %.0f° %.0f&apos; %.1f&quot;</source>
        <comment>11</comment>
        <extracomment>One coordinate in the window: hemisphere letter, degrees, minutes, seconds (&quot;N 48° 6&apos; 0.0&quot;&quot;). The conversions (%c, %.0f, %.1f) stay as they are, and in this order.</extracomment>
        <translation>%c %.0f° %.0f&apos; %.1f&quot;</translation>
    </message>
</context>
<context>
    <name>Places</name>
    <message>
        <source>Near {town}, {country}</source>
        <comment>near</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>W pobliżu: {town}, {country}</translation>
    </message>
    <message>
        <source>Near {town}</source>
        <comment>nearTown</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>W pobliżu: {town}</translation>
    </message>
    <message>
        <source>{distance} km {direction} of {town}, {country}</source>
        <comment>away</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>{distance} km na {direction} od: {town}, {country}</translation>
    </message>
    <message>
        <source>{distance} km {direction} of {town}</source>
        <comment>awayTown</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>{distance} km na {direction} od: {town}</translation>
    </message>
    <message>
        <source>{sea}, {distance} km from {place}</source>
        <comment>atSea</comment>
        <extracomment>A place at sea: {sea} is one of the names below, {place} a town or islands.</extracomment>
        <translation>{sea}, {distance} km od: {place}</translation>
    </message>
    <message>
        <source>N</source>
        <comment>compass0</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>N</translation>
    </message>
    <message>
        <source>NNE</source>
        <comment>compass1</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>NNE</translation>
    </message>
    <message>
        <source>NE</source>
        <comment>compass2</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>NE</translation>
    </message>
    <message>
        <source>ENE</source>
        <comment>compass3</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>ENE</translation>
    </message>
    <message>
        <source>E</source>
        <comment>compass4</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>E</translation>
    </message>
    <message>
        <source>ESE</source>
        <comment>compass5</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>ESE</translation>
    </message>
    <message>
        <source>SE</source>
        <comment>compass6</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>SE</translation>
    </message>
    <message>
        <source>SSE</source>
        <comment>compass7</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>SSE</translation>
    </message>
    <message>
        <source>S</source>
        <comment>compass8</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>S</translation>
    </message>
    <message>
        <source>SSW</source>
        <comment>compass9</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>SSW</translation>
    </message>
    <message>
        <source>SW</source>
        <comment>compass10</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>SW</translation>
    </message>
    <message>
        <source>WSW</source>
        <comment>compass11</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>WSW</translation>
    </message>
    <message>
        <source>W</source>
        <comment>compass12</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>W</translation>
    </message>
    <message>
        <source>WNW</source>
        <comment>compass13</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>WNW</translation>
    </message>
    <message>
        <source>NW</source>
        <comment>compass14</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>NW</translation>
    </message>
    <message>
        <source>NNW</source>
        <comment>compass15</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>NNW</translation>
    </message>
    <message>
        <source>{direction} (true)</source>
        <comment>trueNorth</comment>
        <extracomment>The direction of view of a picture, as the two kinds of north have it. {direction} is a point of the compass and stays as it is.</extracomment>
        <translation>{direction} (geograficzny)</translation>
    </message>
    <message>
        <source>{direction} (magnetic)</source>
        <comment>magneticNorth</comment>
        <extracomment>The direction of view of a picture, as the two kinds of north have it. {direction} is a point of the compass and stays as it is.</extracomment>
        <translation>{direction} (magnetyczny)</translation>
    </message>
    <message>
        <source>{time} ({zone})</source>
        <comment>takenIn</comment>
        <extracomment>When a picture was taken, in the window. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>{time} ({zone})</translation>
    </message>
    <message>
        <source>By the clock of the satellites, in the time of the place.</source>
        <comment>takenBySatellites</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>Według zegara satelitów, w czasie tego miejsca.</translation>
    </message>
    <message>
        <source>By the clock of the satellites, which is in UTC.</source>
        <comment>takenBySatellitesInUTC</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>Według zegara satelitów, w UTC.</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock, which was set to {zone}.</source>
        <comment>takenByCamera</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>Według zegara aparatu, ustawionego na {zone}.</translation>
    </message>
    <message>
        <source>In the time of the place. The camera&apos;s clock was set to {zone} and showed {time}.</source>
        <comment>takenByCameraElsewhere</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>W czasie tego miejsca. Zegar aparatu był ustawiony na {zone} i wskazywał {time}.</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock. The picture does not state its time zone; the one shown is that of the place.</source>
        <comment>takenByCameraAssumed</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>Według zegara aparatu. Zdjęcie nie podaje strefy czasowej; pokazano strefę tego miejsca.</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock. Its time zone is not known.</source>
        <comment>takenByCameraWithoutZone</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>Według zegara aparatu. Jego strefa czasowa nie jest znana.</translation>
    </message>
    <message>
        <source>Sea of Azov</source>
        <comment>Sea of Azov</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Azowskie</translation>
    </message>
    <message>
        <source>Black Sea</source>
        <comment>Black Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Czarne</translation>
    </message>
    <message>
        <source>Caspian Sea</source>
        <comment>Caspian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Kaspijskie</translation>
    </message>
    <message>
        <source>Adriatic Sea</source>
        <comment>Adriatic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Adriatyckie</translation>
    </message>
    <message>
        <source>Aegean Sea</source>
        <comment>Aegean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Egejskie</translation>
    </message>
    <message>
        <source>Ionian Sea</source>
        <comment>Ionian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Jońskie</translation>
    </message>
    <message>
        <source>Tyrrhenian Sea</source>
        <comment>Tyrrhenian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Tyrreńskie</translation>
    </message>
    <message>
        <source>Ligurian Sea</source>
        <comment>Ligurian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Liguryjskie</translation>
    </message>
    <message>
        <source>Alboran Sea</source>
        <comment>Alboran Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Alborańskie</translation>
    </message>
    <message>
        <source>Mediterranean Sea</source>
        <comment>Mediterranean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Śródziemne</translation>
    </message>
    <message>
        <source>Gulf of Bothnia</source>
        <comment>Gulf of Bothnia</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Botnicka</translation>
    </message>
    <message>
        <source>Gulf of Finland</source>
        <comment>Gulf of Finland</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Fińska</translation>
    </message>
    <message>
        <source>Baltic Sea</source>
        <comment>Baltic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Bałtyckie</translation>
    </message>
    <message>
        <source>Kattegat</source>
        <comment>Kattegat</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Kattegat</translation>
    </message>
    <message>
        <source>Skagerrak</source>
        <comment>Skagerrak</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Skagerrak</translation>
    </message>
    <message>
        <source>English Channel</source>
        <comment>English Channel</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Kanał La Manche</translation>
    </message>
    <message>
        <source>Irish Sea</source>
        <comment>Irish Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Irlandzkie</translation>
    </message>
    <message>
        <source>Celtic Sea</source>
        <comment>Celtic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Celtyckie</translation>
    </message>
    <message>
        <source>Bay of Biscay</source>
        <comment>Bay of Biscay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Biskajska</translation>
    </message>
    <message>
        <source>North Sea</source>
        <comment>North Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Północne</translation>
    </message>
    <message>
        <source>Norwegian Sea</source>
        <comment>Norwegian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Norweskie</translation>
    </message>
    <message>
        <source>White Sea</source>
        <comment>White Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Białe</translation>
    </message>
    <message>
        <source>Barents Sea</source>
        <comment>Barents Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Barentsa</translation>
    </message>
    <message>
        <source>Kara Sea</source>
        <comment>Kara Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Karskie</translation>
    </message>
    <message>
        <source>Laptev Sea</source>
        <comment>Laptev Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Łaptiewów</translation>
    </message>
    <message>
        <source>East Siberian Sea</source>
        <comment>East Siberian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Wschodniosyberyjskie</translation>
    </message>
    <message>
        <source>Chukchi Sea</source>
        <comment>Chukchi Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Czukockie</translation>
    </message>
    <message>
        <source>Beaufort Sea</source>
        <comment>Beaufort Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Beauforta</translation>
    </message>
    <message>
        <source>Greenland Sea</source>
        <comment>Greenland Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Grenlandzkie</translation>
    </message>
    <message>
        <source>Denmark Strait</source>
        <comment>Denmark Strait</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Cieśnina Duńska</translation>
    </message>
    <message>
        <source>Baffin Bay</source>
        <comment>Baffin Bay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Baffina</translation>
    </message>
    <message>
        <source>Davis Strait</source>
        <comment>Davis Strait</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Cieśnina Davisa</translation>
    </message>
    <message>
        <source>Hudson Bay</source>
        <comment>Hudson Bay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Hudsona</translation>
    </message>
    <message>
        <source>Gulf of Saint Lawrence</source>
        <comment>Gulf of Saint Lawrence</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Świętego Wawrzyńca</translation>
    </message>
    <message>
        <source>Labrador Sea</source>
        <comment>Labrador Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Labradorskie</translation>
    </message>
    <message>
        <source>Gulf of Mexico</source>
        <comment>Gulf of Mexico</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Meksykańska</translation>
    </message>
    <message>
        <source>Caribbean Sea</source>
        <comment>Caribbean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Karaibskie</translation>
    </message>
    <message>
        <source>Gulf of California</source>
        <comment>Gulf of California</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Kalifornijska</translation>
    </message>
    <message>
        <source>Gulf of Alaska</source>
        <comment>Gulf of Alaska</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Alaska</translation>
    </message>
    <message>
        <source>Bering Sea</source>
        <comment>Bering Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Beringa</translation>
    </message>
    <message>
        <source>Drake Passage</source>
        <comment>Drake Passage</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Cieśnina Drake’a</translation>
    </message>
    <message>
        <source>Scotia Sea</source>
        <comment>Scotia Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Scotia</translation>
    </message>
    <message>
        <source>Weddell Sea</source>
        <comment>Weddell Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Weddella</translation>
    </message>
    <message>
        <source>Ross Sea</source>
        <comment>Ross Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Rossa</translation>
    </message>
    <message>
        <source>Red Sea</source>
        <comment>Red Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Czerwone</translation>
    </message>
    <message>
        <source>Gulf of Aden</source>
        <comment>Gulf of Aden</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Adeńska</translation>
    </message>
    <message>
        <source>Persian Gulf</source>
        <comment>Persian Gulf</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Perska</translation>
    </message>
    <message>
        <source>Gulf of Oman</source>
        <comment>Gulf of Oman</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Omańska</translation>
    </message>
    <message>
        <source>Arabian Sea</source>
        <comment>Arabian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Arabskie</translation>
    </message>
    <message>
        <source>Laccadive Sea</source>
        <comment>Laccadive Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Lakkadiwskie</translation>
    </message>
    <message>
        <source>Andaman Sea</source>
        <comment>Andaman Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Andamańskie</translation>
    </message>
    <message>
        <source>Bay of Bengal</source>
        <comment>Bay of Bengal</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Bengalska</translation>
    </message>
    <message>
        <source>Strait of Malacca</source>
        <comment>Strait of Malacca</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Cieśnina Malakka</translation>
    </message>
    <message>
        <source>Gulf of Thailand</source>
        <comment>Gulf of Thailand</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Tajlandzka</translation>
    </message>
    <message>
        <source>South China Sea</source>
        <comment>South China Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Południowochińskie</translation>
    </message>
    <message>
        <source>Sulu Sea</source>
        <comment>Sulu Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Sulu</translation>
    </message>
    <message>
        <source>Celebes Sea</source>
        <comment>Celebes Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Celebes</translation>
    </message>
    <message>
        <source>Java Sea</source>
        <comment>Java Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Jawajskie</translation>
    </message>
    <message>
        <source>Flores Sea</source>
        <comment>Flores Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Flores</translation>
    </message>
    <message>
        <source>Banda Sea</source>
        <comment>Banda Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Banda</translation>
    </message>
    <message>
        <source>Timor Sea</source>
        <comment>Timor Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Timor</translation>
    </message>
    <message>
        <source>Arafura Sea</source>
        <comment>Arafura Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Arafura</translation>
    </message>
    <message>
        <source>Gulf of Carpentaria</source>
        <comment>Gulf of Carpentaria</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Karpentaria</translation>
    </message>
    <message>
        <source>Philippine Sea</source>
        <comment>Philippine Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Filipińskie</translation>
    </message>
    <message>
        <source>East China Sea</source>
        <comment>East China Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Wschodniochińskie</translation>
    </message>
    <message>
        <source>Yellow Sea</source>
        <comment>Yellow Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Żółte</translation>
    </message>
    <message>
        <source>Sea of Japan</source>
        <comment>Sea of Japan</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Japońskie</translation>
    </message>
    <message>
        <source>Sea of Okhotsk</source>
        <comment>Sea of Okhotsk</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Ochockie</translation>
    </message>
    <message>
        <source>Solomon Sea</source>
        <comment>Solomon Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Salomona</translation>
    </message>
    <message>
        <source>Bismarck Sea</source>
        <comment>Bismarck Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Bismarcka</translation>
    </message>
    <message>
        <source>Coral Sea</source>
        <comment>Coral Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Koralowe</translation>
    </message>
    <message>
        <source>Tasman Sea</source>
        <comment>Tasman Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Morze Tasmana</translation>
    </message>
    <message>
        <source>Great Australian Bight</source>
        <comment>Great Australian Bight</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Wielka Zatoka Australijska</translation>
    </message>
    <message>
        <source>Mozambique Channel</source>
        <comment>Mozambique Channel</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Kanał Mozambicki</translation>
    </message>
    <message>
        <source>Gulf of Guinea</source>
        <comment>Gulf of Guinea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Zatoka Gwinejska</translation>
    </message>
    <message>
        <source>Arctic Ocean</source>
        <comment>Arctic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Ocean Arktyczny</translation>
    </message>
    <message>
        <source>Southern Ocean</source>
        <comment>Southern Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Ocean Południowy</translation>
    </message>
    <message>
        <source>North Atlantic Ocean</source>
        <comment>North Atlantic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Północny Atlantyk</translation>
    </message>
    <message>
        <source>South Atlantic Ocean</source>
        <comment>South Atlantic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Południowy Atlantyk</translation>
    </message>
    <message>
        <source>Indian Ocean</source>
        <comment>Indian Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Ocean Indyjski</translation>
    </message>
    <message>
        <source>North Pacific Ocean</source>
        <comment>North Pacific Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Północny Pacyfik</translation>
    </message>
    <message>
        <source>South Pacific Ocean</source>
        <comment>South Pacific Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Południowy Pacyfik</translation>
    </message>
</context>
</TS>
