<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en_US">
<context>
    <name>Desktop</name>
    <message>
        <source>Picture Location Viewer</source>
        <extracomment>Kind of program, in the menu of programs</extracomment>
        <translation>Просмотр места съёмки</translation>
    </message>
    <message>
        <source>See where the selected picture was taken</source>
        <extracomment>Tool tip of the program in the menu of programs</extracomment>
        <translation>Показывает, где сделан выбранный снимок</translation>
    </message>
    <message>
        <source>photo;picture;GPS;location;map;EXIF;IPTC;geotag;coordinates;KML;raw;</source>
        <extracomment>Words by which the program is found in the menu of programs; each ends with a semicolon. GPS, EXIF, IPTC and KML stay</extracomment>
        <translation>фото;снимок;фотография;GPS;место;карта;EXIF;IPTC;геотег;координаты;KML;raw;</translation>
    </message>
    <message>
        <source>Open the Home Page</source>
        <extracomment>Action of the program&apos;s icon in docks and menus</extracomment>
        <translation>Открыть домашнюю страницу</translation>
    </message>
    <message>
        <source>Donate</source>
        <extracomment>Action of the program&apos;s icon in docks and menus: give the makers money</extracomment>
        <translation>Пожертвовать</translation>
    </message>
    <message>
        <source>See where a picture was taken</source>
        <extracomment>Line under the program&apos;s name in software stores, without a full stop. At most 35 characters</extracomment>
        <translation>Показывает, где сделан снимок</translation>
    </message>
    <message>
        <source>Hasselblad raw image</source>
        <extracomment>Kind of file, in file managers. Hasselblad stays</extracomment>
        <translatorcomment>As the shared MIME types call raw files in Russian; elsewhere RAW, as photographers write it</translatorcomment>
        <translation>Необработанное изображение Hasselblad</translation>
    </message>
    <message>
        <source>Leaf raw image</source>
        <extracomment>Kind of file, in file managers. Leaf is a maker of cameras and stays</extracomment>
        <translation>Необработанное изображение Leaf</translation>
    </message>
    <message>
        <source>Pentax raw image</source>
        <extracomment>Kind of file, in file managers. Pentax stays</extracomment>
        <translation>Необработанное изображение Pentax</translation>
    </message>
    <message>
        <source>Show Where It Was Taken</source>
        <extracomment>Entry in the context menu of file managers, for a picture: shows its place in Pinorama</extracomment>
        <translation>Показать место съёмки</translation>
    </message>
    <message>
        <source>Shows in Pinorama where the picture was taken</source>
        <extracomment>Tool tip of the entry &quot;Show Where It Was Taken&quot; in the context menu of file managers. Pinorama stays</extracomment>
        <translation>Показывает в Pinorama, где сделан снимок</translation>
    </message>
    <message>
        <source>Pinorama keeps one small window open beside the file manager. Select a picture there, and the window shows where it was taken: in words and on a small map, with preview, size, dates, coordinate, altitude and direction of view. It reads JPEG and the raw formats of common cameras, and it needs no network.</source>
        <extracomment>What the program is for, in software stores. Pinorama and JPEG stay</extracomment>
        <translation>Pinorama держит рядом с диспетчером файлов небольшое окно. Выберите там снимок, и окно покажет, где он сделан: словами и на маленькой карте, с предварительным просмотром, размером, датами, координатами, высотой и направлением съёмки. Программа читает JPEG и форматы RAW распространённых фотоаппаратов, сеть ей не нужна.</translation>
    </message>
    <message>
        <source>From the window you can:</source>
        <extracomment>In software stores, above a list</extracomment>
        <translation>Из окна можно:</translation>
    </message>
    <message>
        <source>Fly a globe program to the place</source>
        <extracomment>In the list below &quot;From the window you can:&quot;. Globe programs are such as Google Earth</extracomment>
        <translation>Перелететь к этому месту в программе-глобусе</translation>
    </message>
    <message>
        <source>Open the place in a web map of your choice</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>Открыть место на веб-карте по вашему выбору</translation>
    </message>
    <message>
        <source>Save the place as a KML placemark</source>
        <extracomment>In the list below &quot;From the window you can:&quot;. KML is a kind of file and stays</extracomment>
        <translation>Сохранить место как метку KML</translation>
    </message>
    <message>
        <source>Copy the place as a coordinate, as a link or in words</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>Скопировать место как координаты, ссылку или словами</translation>
    </message>
    <message>
        <source>Find the other pictures that were taken nearby</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>Найти другие снимки, сделанные поблизости</translation>
    </message>
    <message>
        <source>Pictures are read in a separate, sandboxed process, so that a damaged or hostile file cannot harm the program.</source>
        <extracomment>The end of the description in software stores</extracomment>
        <translation>Снимки читает отдельный изолированный процесс, поэтому повреждённый или вредоносный файл не может навредить программе.</translation>
    </message>
    <message>
        <source>The Pinorama developers</source>
        <extracomment>The makers of the program, in software stores. Pinorama stays</extracomment>
        <translation>Разработчики Pinorama</translation>
    </message>
    <message>
        <source>The place of a picture in words and on a map</source>
        <extracomment>Below a picture of the window in software stores, without a full stop</extracomment>
        <translation>Место съёмки словами и на карте</translation>
    </message>
    <message>
        <source>A raw file, with its direction of view</source>
        <extracomment>Below a picture of the window in software stores, without a full stop. It shows a file of a camera&apos;s own format</extracomment>
        <translation>Файл RAW с направлением съёмки</translation>
    </message>
    <message>
        <source>The window in a dark theme</source>
        <extracomment>Below a picture of the window in software stores, without a full stop</extracomment>
        <translation>Окно в тёмном оформлении</translation>
    </message>
    <message>
        <source>The first release. Pinorama:</source>
        <extracomment>What is new in version 1.0.0, in software stores, above a list</extracomment>
        <translation>Первый выпуск. Pinorama:</translation>
    </message>
    <message>
        <source>follows the selection of Nautilus, Nemo, Caja, Thunar, Dolphin, PCManFM, PCManFM-Qt, SpaceFM and Krusader</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;, so that it goes on from there. The names stay</extracomment>
        <translation>следит за выбором в Nautilus, Nemo, Caja, Thunar, Dolphin, PCManFM, PCManFM-Qt, SpaceFM и Krusader</translation>
    </message>
    <message>
        <source>reads JPEG and the raw formats of common cameras, and on request HEIC, videos and more</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;. HEIC and JPEG stay</extracomment>
        <translation>читает JPEG и форматы RAW распространённых фотоаппаратов, а по желанию HEIC, видео и другое</translation>
    </message>
    <message>
        <source>says in words where a picture was taken and shows it on a small map, without a network</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;</extracomment>
        <translation>описывает словами, где сделан снимок, и показывает это на маленькой карте, без сети</translation>
    </message>
    <message>
        <source>finds the pictures that were taken nearby</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;</extracomment>
        <translation>находит снимки, сделанные поблизости</translation>
    </message>
    <message>
        <source>prints the same facts in a terminal with pinorama-info, for one picture or thousands</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;. pinorama-info is the name of a program and stays</extracomment>
        <translation>выводит те же сведения в терминале командой pinorama-info, для одного снимка или для тысяч</translation>
    </message>
    <message>
        <source>Taken at</source>
        <extracomment>Column in the list view of file managers: the place where the picture was taken, in words</extracomment>
        <translation>Место съёмки</translation>
    </message>
    <message>
        <source>The place where the picture was taken</source>
        <extracomment>Explains the column &quot;Taken at&quot; in the settings of file managers</extracomment>
        <translation>Место, где был сделан снимок</translation>
    </message>
</context>
<context>
    <name>GPS</name>
    <message>
        <source>Picture</source>
        <comment>picture</comment>
        <extracomment>The title of the mark on a web map. It becomes part of an address: only letters of English, no blanks. Languages with other letters have &quot;Photo&quot;.</extracomment>
        <translation>Photo</translation>
    </message>
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
        <translation>Снимки улиц (Mapillary)</translation>
    </message>
    <message>
        <source>Wikipedia articles nearby</source>
        <comment>a7</comment>
        <extracomment>In the menu of map services: opens the list of Wikipedia articles about places nearby.</extracomment>
        <translation>Статьи Википедии поблизости</translation>
    </message>
    <message>
        <source>All map services (GeoHack)</source>
        <comment>a8</comment>
        <extracomment>In the menu of map services: opens a list of all web maps that show the place. GeoHack is a name and stays.</extracomment>
        <translation>Все службы карт (GeoHack)</translation>
    </message>
    <message>
        <source>Map program of this computer</source>
        <comment>a9</comment>
        <extracomment>In the menu of map services: opens the place in the map program that is installed.</extracomment>
        <translation>Программа карт на этом компьютере</translation>
    </message>
</context>
<context>
    <name>Localizable</name>
    <message>
        <source> KB</source>
        <comment>STR#1001:46</comment>
        <extracomment>Unit of a file&apos;s size, in the window: kilobytes, megabytes, gigabytes, terabytes. It follows the number directly, so it begins with the space that the language wants there (&quot;1,024.0&quot; and &quot; KB&quot; give &quot;1,024.0 KB&quot;).</extracomment>
        <translation> КБ</translation>
    </message>
    <message>
        <source> MB</source>
        <comment>STR#1001:3</comment>
        <extracomment>Unit of a file&apos;s size, in the window: kilobytes, megabytes, gigabytes, terabytes. It follows the number directly, so it begins with the space that the language wants there (&quot;1,024.0&quot; and &quot; KB&quot; give &quot;1,024.0 KB&quot;).</extracomment>
        <translation> МБ</translation>
    </message>
    <message>
        <source> GB</source>
        <comment>STR#1001:31</comment>
        <extracomment>Unit of a file&apos;s size, in the window: kilobytes, megabytes, gigabytes, terabytes. It follows the number directly, so it begins with the space that the language wants there (&quot;1,024.0&quot; and &quot; KB&quot; give &quot;1,024.0 KB&quot;).</extracomment>
        <translation> ГБ</translation>
    </message>
    <message>
        <source> TB</source>
        <comment>STR#1001:123</comment>
        <extracomment>Unit of a file&apos;s size, in the window: kilobytes, megabytes, gigabytes, terabytes. It follows the number directly, so it begins with the space that the language wants there (&quot;1,024.0&quot; and &quot; KB&quot; give &quot;1,024.0 KB&quot;).</extracomment>
        <translation> ТБ</translation>
    </message>
    <message>
        <source>bytes</source>
        <comment>STR#1001:93</comment>
        <extracomment>In the window, after the exact count of a file&apos;s size: &quot;0.5 KB (512 bytes)&quot;. The count is mostly large.</extracomment>
        <translation>байт</translation>
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
        <translation>Поблизости: {town}, {country}</translation>
    </message>
    <message>
        <source>Near {town}</source>
        <comment>nearTown</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>Поблизости: {town}</translation>
    </message>
    <message>
        <source>{distance} km {direction} of {town}, {country}</source>
        <comment>away</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>{distance} км на {direction} от: {town}, {country}</translation>
    </message>
    <message>
        <source>{distance} km {direction} of {town}</source>
        <comment>awayTown</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>{distance} км на {direction} от: {town}</translation>
    </message>
    <message>
        <source>{sea}, {distance} km from {place}</source>
        <comment>atSea</comment>
        <extracomment>A place at sea: {sea} is one of the names below, {place} a town or islands.</extracomment>
        <translation>{sea}, {distance} км от: {place}</translation>
    </message>
    <message>
        <source>N</source>
        <comment>compass0</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>С</translation>
    </message>
    <message>
        <source>NNE</source>
        <comment>compass1</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>ССВ</translation>
    </message>
    <message>
        <source>NE</source>
        <comment>compass2</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>СВ</translation>
    </message>
    <message>
        <source>ENE</source>
        <comment>compass3</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>ВСВ</translation>
    </message>
    <message>
        <source>E</source>
        <comment>compass4</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>В</translation>
    </message>
    <message>
        <source>ESE</source>
        <comment>compass5</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>ВЮВ</translation>
    </message>
    <message>
        <source>SE</source>
        <comment>compass6</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>ЮВ</translation>
    </message>
    <message>
        <source>SSE</source>
        <comment>compass7</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>ЮЮВ</translation>
    </message>
    <message>
        <source>S</source>
        <comment>compass8</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>Ю</translation>
    </message>
    <message>
        <source>SSW</source>
        <comment>compass9</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>ЮЮЗ</translation>
    </message>
    <message>
        <source>SW</source>
        <comment>compass10</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>ЮЗ</translation>
    </message>
    <message>
        <source>WSW</source>
        <comment>compass11</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>ЗЮЗ</translation>
    </message>
    <message>
        <source>W</source>
        <comment>compass12</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>З</translation>
    </message>
    <message>
        <source>WNW</source>
        <comment>compass13</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>ЗСЗ</translation>
    </message>
    <message>
        <source>NW</source>
        <comment>compass14</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>СЗ</translation>
    </message>
    <message>
        <source>NNW</source>
        <comment>compass15</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>ССЗ</translation>
    </message>
    <message>
        <source>{direction} (true)</source>
        <comment>trueNorth</comment>
        <extracomment>The direction of view of a picture, as the two kinds of north have it. {direction} is a point of the compass and stays as it is.</extracomment>
        <translation>{direction} (истинный)</translation>
    </message>
    <message>
        <source>{direction} (magnetic)</source>
        <comment>magneticNorth</comment>
        <extracomment>The direction of view of a picture, as the two kinds of north have it. {direction} is a point of the compass and stays as it is.</extracomment>
        <translation>{direction} (магнитный)</translation>
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
        <translation>По часам спутников, по времени места съёмки.</translation>
    </message>
    <message>
        <source>By the clock of the satellites, which is in UTC.</source>
        <comment>takenBySatellitesInUTC</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>По часам спутников, в UTC.</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock, which was set to {zone}.</source>
        <comment>takenByCamera</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>По часам фотоаппарата, установленным на {zone}.</translation>
    </message>
    <message>
        <source>In the time of the place. The camera&apos;s clock was set to {zone} and showed {time}.</source>
        <comment>takenByCameraElsewhere</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>По времени места съёмки. Часы фотоаппарата были установлены на {zone} и показывали {time}.</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock. The picture does not state its time zone; the one shown is that of the place.</source>
        <comment>takenByCameraAssumed</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>По часам фотоаппарата. Часовой пояс в снимке не указан; показан пояс места съёмки.</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock. Its time zone is not known.</source>
        <comment>takenByCameraWithoutZone</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>По часам фотоаппарата. Их часовой пояс неизвестен.</translation>
    </message>
    <message>
        <source>Sea of Azov</source>
        <comment>Sea of Azov</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Азовское море</translation>
    </message>
    <message>
        <source>Black Sea</source>
        <comment>Black Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Чёрное море</translation>
    </message>
    <message>
        <source>Caspian Sea</source>
        <comment>Caspian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Каспийское море</translation>
    </message>
    <message>
        <source>Adriatic Sea</source>
        <comment>Adriatic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Адриатическое море</translation>
    </message>
    <message>
        <source>Aegean Sea</source>
        <comment>Aegean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Эгейское море</translation>
    </message>
    <message>
        <source>Ionian Sea</source>
        <comment>Ionian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Ионическое море</translation>
    </message>
    <message>
        <source>Tyrrhenian Sea</source>
        <comment>Tyrrhenian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Тирренское море</translation>
    </message>
    <message>
        <source>Ligurian Sea</source>
        <comment>Ligurian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Лигурийское море</translation>
    </message>
    <message>
        <source>Alboran Sea</source>
        <comment>Alboran Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Море Альборан</translation>
    </message>
    <message>
        <source>Mediterranean Sea</source>
        <comment>Mediterranean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Средиземное море</translation>
    </message>
    <message>
        <source>Gulf of Bothnia</source>
        <comment>Gulf of Bothnia</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Ботнический залив</translation>
    </message>
    <message>
        <source>Gulf of Finland</source>
        <comment>Gulf of Finland</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Финский залив</translation>
    </message>
    <message>
        <source>Baltic Sea</source>
        <comment>Baltic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Балтийское море</translation>
    </message>
    <message>
        <source>Kattegat</source>
        <comment>Kattegat</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Каттегат</translation>
    </message>
    <message>
        <source>Skagerrak</source>
        <comment>Skagerrak</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Скагеррак</translation>
    </message>
    <message>
        <source>English Channel</source>
        <comment>English Channel</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Ла-Манш</translation>
    </message>
    <message>
        <source>Irish Sea</source>
        <comment>Irish Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Ирландское море</translation>
    </message>
    <message>
        <source>Celtic Sea</source>
        <comment>Celtic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Кельтское море</translation>
    </message>
    <message>
        <source>Bay of Biscay</source>
        <comment>Bay of Biscay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Бискайский залив</translation>
    </message>
    <message>
        <source>North Sea</source>
        <comment>North Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Северное море</translation>
    </message>
    <message>
        <source>Norwegian Sea</source>
        <comment>Norwegian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Норвежское море</translation>
    </message>
    <message>
        <source>White Sea</source>
        <comment>White Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Белое море</translation>
    </message>
    <message>
        <source>Barents Sea</source>
        <comment>Barents Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Баренцево море</translation>
    </message>
    <message>
        <source>Kara Sea</source>
        <comment>Kara Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Карское море</translation>
    </message>
    <message>
        <source>Laptev Sea</source>
        <comment>Laptev Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Море Лаптевых</translation>
    </message>
    <message>
        <source>East Siberian Sea</source>
        <comment>East Siberian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Восточно-Сибирское море</translation>
    </message>
    <message>
        <source>Chukchi Sea</source>
        <comment>Chukchi Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Чукотское море</translation>
    </message>
    <message>
        <source>Beaufort Sea</source>
        <comment>Beaufort Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Море Бофорта</translation>
    </message>
    <message>
        <source>Greenland Sea</source>
        <comment>Greenland Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Гренландское море</translation>
    </message>
    <message>
        <source>Denmark Strait</source>
        <comment>Denmark Strait</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Датский пролив</translation>
    </message>
    <message>
        <source>Baffin Bay</source>
        <comment>Baffin Bay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Море Баффина</translation>
    </message>
    <message>
        <source>Davis Strait</source>
        <comment>Davis Strait</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Пролив Дейвиса</translation>
    </message>
    <message>
        <source>Hudson Bay</source>
        <comment>Hudson Bay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Гудзонов залив</translation>
    </message>
    <message>
        <source>Gulf of Saint Lawrence</source>
        <comment>Gulf of Saint Lawrence</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Залив Святого Лаврентия</translation>
    </message>
    <message>
        <source>Labrador Sea</source>
        <comment>Labrador Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Море Лабрадор</translation>
    </message>
    <message>
        <source>Gulf of Mexico</source>
        <comment>Gulf of Mexico</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Мексиканский залив</translation>
    </message>
    <message>
        <source>Caribbean Sea</source>
        <comment>Caribbean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Карибское море</translation>
    </message>
    <message>
        <source>Gulf of California</source>
        <comment>Gulf of California</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Калифорнийский залив</translation>
    </message>
    <message>
        <source>Gulf of Alaska</source>
        <comment>Gulf of Alaska</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Залив Аляска</translation>
    </message>
    <message>
        <source>Bering Sea</source>
        <comment>Bering Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Берингово море</translation>
    </message>
    <message>
        <source>Drake Passage</source>
        <comment>Drake Passage</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Пролив Дрейка</translation>
    </message>
    <message>
        <source>Scotia Sea</source>
        <comment>Scotia Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Море Скоша</translation>
    </message>
    <message>
        <source>Weddell Sea</source>
        <comment>Weddell Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Море Уэдделла</translation>
    </message>
    <message>
        <source>Ross Sea</source>
        <comment>Ross Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Море Росса</translation>
    </message>
    <message>
        <source>Red Sea</source>
        <comment>Red Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Красное море</translation>
    </message>
    <message>
        <source>Gulf of Aden</source>
        <comment>Gulf of Aden</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Аденский залив</translation>
    </message>
    <message>
        <source>Persian Gulf</source>
        <comment>Persian Gulf</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Персидский залив</translation>
    </message>
    <message>
        <source>Gulf of Oman</source>
        <comment>Gulf of Oman</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Оманский залив</translation>
    </message>
    <message>
        <source>Arabian Sea</source>
        <comment>Arabian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Аравийское море</translation>
    </message>
    <message>
        <source>Laccadive Sea</source>
        <comment>Laccadive Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Лаккадивское море</translation>
    </message>
    <message>
        <source>Andaman Sea</source>
        <comment>Andaman Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Андаманское море</translation>
    </message>
    <message>
        <source>Bay of Bengal</source>
        <comment>Bay of Bengal</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Бенгальский залив</translation>
    </message>
    <message>
        <source>Strait of Malacca</source>
        <comment>Strait of Malacca</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Малаккский пролив</translation>
    </message>
    <message>
        <source>Gulf of Thailand</source>
        <comment>Gulf of Thailand</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Сиамский залив</translation>
    </message>
    <message>
        <source>South China Sea</source>
        <comment>South China Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Южно-Китайское море</translation>
    </message>
    <message>
        <source>Sulu Sea</source>
        <comment>Sulu Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Море Сулу</translation>
    </message>
    <message>
        <source>Celebes Sea</source>
        <comment>Celebes Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Море Сулавеси</translation>
    </message>
    <message>
        <source>Java Sea</source>
        <comment>Java Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Яванское море</translation>
    </message>
    <message>
        <source>Flores Sea</source>
        <comment>Flores Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Море Флорес</translation>
    </message>
    <message>
        <source>Banda Sea</source>
        <comment>Banda Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Море Банда</translation>
    </message>
    <message>
        <source>Timor Sea</source>
        <comment>Timor Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Тиморское море</translation>
    </message>
    <message>
        <source>Arafura Sea</source>
        <comment>Arafura Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Арафурское море</translation>
    </message>
    <message>
        <source>Gulf of Carpentaria</source>
        <comment>Gulf of Carpentaria</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Залив Карпентария</translation>
    </message>
    <message>
        <source>Philippine Sea</source>
        <comment>Philippine Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Филиппинское море</translation>
    </message>
    <message>
        <source>East China Sea</source>
        <comment>East China Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Восточно-Китайское море</translation>
    </message>
    <message>
        <source>Yellow Sea</source>
        <comment>Yellow Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Жёлтое море</translation>
    </message>
    <message>
        <source>Sea of Japan</source>
        <comment>Sea of Japan</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Японское море</translation>
    </message>
    <message>
        <source>Sea of Okhotsk</source>
        <comment>Sea of Okhotsk</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Охотское море</translation>
    </message>
    <message>
        <source>Solomon Sea</source>
        <comment>Solomon Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Соломоново море</translation>
    </message>
    <message>
        <source>Bismarck Sea</source>
        <comment>Bismarck Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Море Бисмарка</translation>
    </message>
    <message>
        <source>Coral Sea</source>
        <comment>Coral Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Коралловое море</translation>
    </message>
    <message>
        <source>Tasman Sea</source>
        <comment>Tasman Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Тасманово море</translation>
    </message>
    <message>
        <source>Great Australian Bight</source>
        <comment>Great Australian Bight</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Большой Австралийский залив</translation>
    </message>
    <message>
        <source>Mozambique Channel</source>
        <comment>Mozambique Channel</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Мозамбикский пролив</translation>
    </message>
    <message>
        <source>Gulf of Guinea</source>
        <comment>Gulf of Guinea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Гвинейский залив</translation>
    </message>
    <message>
        <source>Arctic Ocean</source>
        <comment>Arctic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Северный Ледовитый океан</translation>
    </message>
    <message>
        <source>Southern Ocean</source>
        <comment>Southern Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Южный океан</translation>
    </message>
    <message>
        <source>North Atlantic Ocean</source>
        <comment>North Atlantic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Северная Атлантика</translation>
    </message>
    <message>
        <source>South Atlantic Ocean</source>
        <comment>South Atlantic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Южная Атлантика</translation>
    </message>
    <message>
        <source>Indian Ocean</source>
        <comment>Indian Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Индийский океан</translation>
    </message>
    <message>
        <source>North Pacific Ocean</source>
        <comment>North Pacific Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Северная часть Тихого океана</translation>
    </message>
    <message>
        <source>South Pacific Ocean</source>
        <comment>South Pacific Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>Южная часть Тихого океана</translation>
    </message>
</context>
</TS>
