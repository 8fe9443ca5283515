<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW" sourcelanguage="en_US">
<context>
    <name>Desktop</name>
    <message>
        <source>Picture Location Viewer</source>
        <extracomment>Kind of program, in the menu of programs</extracomment>
        <translation>相片位置檢視器</translation>
    </message>
    <message>
        <source>See where the selected picture was taken</source>
        <extracomment>Tool tip of the program in the menu of programs</extracomment>
        <translation>檢視所選相片的拍攝地點</translation>
    </message>
    <message>
        <source>photo;picture;GPS;location;map;EXIF;IPTC;geotag;coordinates;KML;raw;</source>
        <extracomment>Words by which the program is found in the menu of programs; each ends with a semicolon. GPS, EXIF, IPTC and KML stay</extracomment>
        <translation>相片;照片;圖片;GPS;位置;地點;地圖;EXIF;IPTC;地理標記;座標;KML;RAW;</translation>
    </message>
    <message>
        <source>Open the Home Page</source>
        <extracomment>Action of the program&apos;s icon in docks and menus</extracomment>
        <translation>開啟首頁</translation>
    </message>
    <message>
        <source>Donate</source>
        <extracomment>Action of the program&apos;s icon in docks and menus: give the makers money</extracomment>
        <translation>捐款</translation>
    </message>
    <message>
        <source>See where a picture was taken</source>
        <extracomment>Line under the program&apos;s name in software stores, without a full stop. At most 35 characters</extracomment>
        <translation>檢視相片的拍攝地點</translation>
    </message>
    <message>
        <source>Hasselblad raw image</source>
        <extracomment>Kind of file, in file managers. Hasselblad stays</extracomment>
        <translatorcomment>As the shared MIME types call raw files in Chinese; elsewhere RAW, as photographers write it</translatorcomment>
        <translation>Hasselblad 原始影像</translation>
    </message>
    <message>
        <source>Leaf raw image</source>
        <extracomment>Kind of file, in file managers. Leaf is a maker of cameras and stays</extracomment>
        <translation>Leaf 原始影像</translation>
    </message>
    <message>
        <source>Pentax raw image</source>
        <extracomment>Kind of file, in file managers. Pentax stays</extracomment>
        <translation>Pentax 原始影像</translation>
    </message>
    <message>
        <source>Show Where It Was Taken</source>
        <extracomment>Entry in the context menu of file managers, for a picture: shows its place in Pinorama</extracomment>
        <translation>顯示拍攝地點</translation>
    </message>
    <message>
        <source>Shows in Pinorama where the picture was taken</source>
        <extracomment>Tool tip of the entry &quot;Show Where It Was Taken&quot; in the context menu of file managers. Pinorama stays</extracomment>
        <translation>在 Pinorama 中顯示相片的拍攝地點</translation>
    </message>
    <message>
        <source>Pinorama keeps one small window open beside the file manager. Select a picture there, and the window shows where it was taken: in words and on a small map, with preview, size, dates, coordinate, altitude and direction of view. It reads JPEG and the raw formats of common cameras, and it needs no network.</source>
        <extracomment>What the program is for, in software stores. Pinorama and JPEG stay</extracomment>
        <translation>Pinorama 會在檔案管理員旁保持開啟一個小視窗。在檔案管理員中選取一張相片，視窗就會顯示它的拍攝地點：以文字和小地圖呈現，並附上預覽、大小、日期、座標、海拔和拍攝方向。它可以讀取 JPEG 和常見相機的 RAW 格式，而且不需要網路。</translation>
    </message>
    <message>
        <source>From the window you can:</source>
        <extracomment>In software stores, above a list</extracomment>
        <translation>在視窗中可以：</translation>
    </message>
    <message>
        <source>Fly a globe program to the place</source>
        <extracomment>In the list below &quot;From the window you can:&quot;. Globe programs are such as Google Earth</extracomment>
        <translation>讓地球儀程式飛到該地點</translation>
    </message>
    <message>
        <source>Open the place in a web map of your choice</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>在選定的網路地圖中開啟該地點</translation>
    </message>
    <message>
        <source>Save the place as a KML placemark</source>
        <extracomment>In the list below &quot;From the window you can:&quot;. KML is a kind of file and stays</extracomment>
        <translation>將該地點儲存為 KML 地標</translation>
    </message>
    <message>
        <source>Copy the place as a coordinate, as a link or in words</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>以座標、連結或文字的形式複製該地點</translation>
    </message>
    <message>
        <source>Find the other pictures that were taken nearby</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>尋找在附近拍攝的其他相片</translation>
    </message>
    <message>
        <source>Pictures are read in a separate, sandboxed process, so that a damaged or hostile file cannot harm the program.</source>
        <extracomment>The end of the description in software stores</extracomment>
        <translation>相片在獨立的沙箱行程中讀取，因此損壞或惡意的檔案無法危害程式。</translation>
    </message>
    <message>
        <source>The Pinorama developers</source>
        <extracomment>The makers of the program, in software stores. Pinorama stays</extracomment>
        <translation>Pinorama 開發者</translation>
    </message>
    <message>
        <source>The place of a picture in words and on a map</source>
        <extracomment>Below a picture of the window in software stores, without a full stop</extracomment>
        <translation>以文字和地圖顯示相片的拍攝地點</translation>
    </message>
    <message>
        <source>A raw file, with its direction of view</source>
        <extracomment>Below a picture of the window in software stores, without a full stop. It shows a file of a camera&apos;s own format</extracomment>
        <translation>RAW 檔案及其拍攝方向</translation>
    </message>
    <message>
        <source>The window in a dark theme</source>
        <extracomment>Below a picture of the window in software stores, without a full stop</extracomment>
        <translation>深色佈景主題下的視窗</translation>
    </message>
    <message>
        <source>The first release. Pinorama:</source>
        <extracomment>What is new in version 1.0.0, in software stores, above a list</extracomment>
        <translation>第一個版本。Pinorama：</translation>
    </message>
    <message>
        <source>follows the selection of Nautilus, Nemo, Caja, Thunar, Dolphin, PCManFM, PCManFM-Qt, SpaceFM and Krusader</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;, so that it goes on from there. The names stay</extracomment>
        <translation>跟隨 Nautilus、Nemo、Caja、Thunar、Dolphin、PCManFM、PCManFM-Qt、SpaceFM 和 Krusader 中的選取</translation>
    </message>
    <message>
        <source>reads JPEG and the raw formats of common cameras, and on request HEIC, videos and more</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;. HEIC and JPEG stay</extracomment>
        <translation>讀取 JPEG 和常見相機的 RAW 格式，並可視需要讀取 HEIC、影片等</translation>
    </message>
    <message>
        <source>says in words where a picture was taken and shows it on a small map, without a network</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;</extracomment>
        <translation>以文字說明相片的拍攝地點，並顯示在小地圖上，不需要網路</translation>
    </message>
    <message>
        <source>finds the pictures that were taken nearby</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;</extracomment>
        <translation>尋找在附近拍攝的相片</translation>
    </message>
    <message>
        <source>prints the same facts in a terminal with pinorama-info, for one picture or thousands</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;. pinorama-info is the name of a program and stays</extracomment>
        <translation>透過 pinorama-info 在終端機中輸出相同的資訊，一張或數千張相片皆可</translation>
    </message>
    <message>
        <source>Taken at</source>
        <extracomment>Column in the list view of file managers: the place where the picture was taken, in words</extracomment>
        <translation>拍攝地點</translation>
    </message>
    <message>
        <source>The place where the picture was taken</source>
        <extracomment>Explains the column &quot;Taken at&quot; in the settings of file managers</extracomment>
        <translation>相片的拍攝地點</translation>
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
        <translation>Google 地圖</translation>
    </message>
    <message>
        <source>Bing Maps</source>
        <comment>a3</comment>
        <extracomment>In the menu of map services: the name of a web map. Most languages keep it.</extracomment>
        <translation>Bing 地圖</translation>
    </message>
    <message>
        <source>Apple Maps</source>
        <comment>a4</comment>
        <extracomment>In the menu of map services: the name of a web map. Most languages keep it.</extracomment>
        <translation>Apple 地圖</translation>
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
        <translation>街景相片 (Mapillary)</translation>
    </message>
    <message>
        <source>Wikipedia articles nearby</source>
        <comment>a7</comment>
        <extracomment>In the menu of map services: opens the list of Wikipedia articles about places nearby.</extracomment>
        <translation>附近的維基百科條目</translation>
    </message>
    <message>
        <source>All map services (GeoHack)</source>
        <comment>a8</comment>
        <extracomment>In the menu of map services: opens a list of all web maps that show the place. GeoHack is a name and stays.</extracomment>
        <translation>所有地圖服務 (GeoHack)</translation>
    </message>
    <message>
        <source>Map program of this computer</source>
        <comment>a9</comment>
        <extracomment>In the menu of map services: opens the place in the map program that is installed.</extracomment>
        <translation>這台電腦的地圖程式</translation>
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
        <translation>位元組</translation>
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
        <translation>{country}{town}附近</translation>
    </message>
    <message>
        <source>Near {town}</source>
        <comment>nearTown</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>{town}附近</translation>
    </message>
    <message>
        <source>{distance} km {direction} of {town}, {country}</source>
        <comment>away</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>{country}{town}{direction}方 {distance} 公里</translation>
    </message>
    <message>
        <source>{distance} km {direction} of {town}</source>
        <comment>awayTown</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>{town}{direction}方 {distance} 公里</translation>
    </message>
    <message>
        <source>{sea}, {distance} km from {place}</source>
        <comment>atSea</comment>
        <extracomment>A place at sea: {sea} is one of the names below, {place} a town or islands.</extracomment>
        <translation>{sea}，距{place} {distance} 公里</translation>
    </message>
    <message>
        <source>N</source>
        <comment>compass0</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>北</translation>
    </message>
    <message>
        <source>NNE</source>
        <comment>compass1</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>北北東</translation>
    </message>
    <message>
        <source>NE</source>
        <comment>compass2</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>東北</translation>
    </message>
    <message>
        <source>ENE</source>
        <comment>compass3</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>東北東</translation>
    </message>
    <message>
        <source>E</source>
        <comment>compass4</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>東</translation>
    </message>
    <message>
        <source>ESE</source>
        <comment>compass5</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>東南東</translation>
    </message>
    <message>
        <source>SE</source>
        <comment>compass6</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>東南</translation>
    </message>
    <message>
        <source>SSE</source>
        <comment>compass7</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>南南東</translation>
    </message>
    <message>
        <source>S</source>
        <comment>compass8</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>南</translation>
    </message>
    <message>
        <source>SSW</source>
        <comment>compass9</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>南南西</translation>
    </message>
    <message>
        <source>SW</source>
        <comment>compass10</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>西南</translation>
    </message>
    <message>
        <source>WSW</source>
        <comment>compass11</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>西南西</translation>
    </message>
    <message>
        <source>W</source>
        <comment>compass12</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>西</translation>
    </message>
    <message>
        <source>WNW</source>
        <comment>compass13</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>西北西</translation>
    </message>
    <message>
        <source>NW</source>
        <comment>compass14</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>西北</translation>
    </message>
    <message>
        <source>NNW</source>
        <comment>compass15</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>北北西</translation>
    </message>
    <message>
        <source>{direction} (true)</source>
        <comment>trueNorth</comment>
        <extracomment>The direction of view of a picture, as the two kinds of north have it. {direction} is a point of the compass and stays as it is.</extracomment>
        <translation>{direction}（真北）</translation>
    </message>
    <message>
        <source>{direction} (magnetic)</source>
        <comment>magneticNorth</comment>
        <extracomment>The direction of view of a picture, as the two kinds of north have it. {direction} is a point of the compass and stays as it is.</extracomment>
        <translation>{direction}（磁北）</translation>
    </message>
    <message>
        <source>{time} ({zone})</source>
        <comment>takenIn</comment>
        <extracomment>When a picture was taken, in the window. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>{time}（{zone}）</translation>
    </message>
    <message>
        <source>By the clock of the satellites, in the time of the place.</source>
        <comment>takenBySatellites</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>依衛星時鐘，以當地時間顯示。</translation>
    </message>
    <message>
        <source>By the clock of the satellites, which is in UTC.</source>
        <comment>takenBySatellitesInUTC</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>依衛星時鐘，即 UTC。</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock, which was set to {zone}.</source>
        <comment>takenByCamera</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>依相機時鐘，當時設定為 {zone}。</translation>
    </message>
    <message>
        <source>In the time of the place. The camera&apos;s clock was set to {zone} and showed {time}.</source>
        <comment>takenByCameraElsewhere</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>當地時間。相機時鐘設定為 {zone}，顯示 {time}。</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock. The picture does not state its time zone; the one shown is that of the place.</source>
        <comment>takenByCameraAssumed</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>依相機時鐘。相片未註明其時區；顯示的是當地時區。</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock. Its time zone is not known.</source>
        <comment>takenByCameraWithoutZone</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>依相機時鐘。其時區不明。</translation>
    </message>
    <message>
        <source>Sea of Azov</source>
        <comment>Sea of Azov</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>亞速海</translation>
    </message>
    <message>
        <source>Black Sea</source>
        <comment>Black Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>黑海</translation>
    </message>
    <message>
        <source>Caspian Sea</source>
        <comment>Caspian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>裏海</translation>
    </message>
    <message>
        <source>Adriatic Sea</source>
        <comment>Adriatic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>亞得里亞海</translation>
    </message>
    <message>
        <source>Aegean Sea</source>
        <comment>Aegean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>愛琴海</translation>
    </message>
    <message>
        <source>Ionian Sea</source>
        <comment>Ionian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>愛奧尼亞海</translation>
    </message>
    <message>
        <source>Tyrrhenian Sea</source>
        <comment>Tyrrhenian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>第勒尼安海</translation>
    </message>
    <message>
        <source>Ligurian Sea</source>
        <comment>Ligurian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>利古里亞海</translation>
    </message>
    <message>
        <source>Alboran Sea</source>
        <comment>Alboran Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>阿爾沃蘭海</translation>
    </message>
    <message>
        <source>Mediterranean Sea</source>
        <comment>Mediterranean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>地中海</translation>
    </message>
    <message>
        <source>Gulf of Bothnia</source>
        <comment>Gulf of Bothnia</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>波的尼亞灣</translation>
    </message>
    <message>
        <source>Gulf of Finland</source>
        <comment>Gulf of Finland</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>芬蘭灣</translation>
    </message>
    <message>
        <source>Baltic Sea</source>
        <comment>Baltic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>波羅的海</translation>
    </message>
    <message>
        <source>Kattegat</source>
        <comment>Kattegat</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>卡特加特海峽</translation>
    </message>
    <message>
        <source>Skagerrak</source>
        <comment>Skagerrak</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>斯卡格拉克海峽</translation>
    </message>
    <message>
        <source>English Channel</source>
        <comment>English Channel</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>英吉利海峽</translation>
    </message>
    <message>
        <source>Irish Sea</source>
        <comment>Irish Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>愛爾蘭海</translation>
    </message>
    <message>
        <source>Celtic Sea</source>
        <comment>Celtic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>凱爾特海</translation>
    </message>
    <message>
        <source>Bay of Biscay</source>
        <comment>Bay of Biscay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>比斯開灣</translation>
    </message>
    <message>
        <source>North Sea</source>
        <comment>North Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>北海</translation>
    </message>
    <message>
        <source>Norwegian Sea</source>
        <comment>Norwegian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>挪威海</translation>
    </message>
    <message>
        <source>White Sea</source>
        <comment>White Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>白海</translation>
    </message>
    <message>
        <source>Barents Sea</source>
        <comment>Barents Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>巴倫支海</translation>
    </message>
    <message>
        <source>Kara Sea</source>
        <comment>Kara Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>喀拉海</translation>
    </message>
    <message>
        <source>Laptev Sea</source>
        <comment>Laptev Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>拉普捷夫海</translation>
    </message>
    <message>
        <source>East Siberian Sea</source>
        <comment>East Siberian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>東西伯利亞海</translation>
    </message>
    <message>
        <source>Chukchi Sea</source>
        <comment>Chukchi Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>楚科奇海</translation>
    </message>
    <message>
        <source>Beaufort Sea</source>
        <comment>Beaufort Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>波弗特海</translation>
    </message>
    <message>
        <source>Greenland Sea</source>
        <comment>Greenland Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>格陵蘭海</translation>
    </message>
    <message>
        <source>Denmark Strait</source>
        <comment>Denmark Strait</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>丹麥海峽</translation>
    </message>
    <message>
        <source>Baffin Bay</source>
        <comment>Baffin Bay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>巴芬灣</translation>
    </message>
    <message>
        <source>Davis Strait</source>
        <comment>Davis Strait</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>戴維斯海峽</translation>
    </message>
    <message>
        <source>Hudson Bay</source>
        <comment>Hudson Bay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>哈德遜灣</translation>
    </message>
    <message>
        <source>Gulf of Saint Lawrence</source>
        <comment>Gulf of Saint Lawrence</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>聖羅倫斯灣</translation>
    </message>
    <message>
        <source>Labrador Sea</source>
        <comment>Labrador Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>拉布拉多海</translation>
    </message>
    <message>
        <source>Gulf of Mexico</source>
        <comment>Gulf of Mexico</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>墨西哥灣</translation>
    </message>
    <message>
        <source>Caribbean Sea</source>
        <comment>Caribbean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>加勒比海</translation>
    </message>
    <message>
        <source>Gulf of California</source>
        <comment>Gulf of California</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>加利福尼亞灣</translation>
    </message>
    <message>
        <source>Gulf of Alaska</source>
        <comment>Gulf of Alaska</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>阿拉斯加灣</translation>
    </message>
    <message>
        <source>Bering Sea</source>
        <comment>Bering Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>白令海</translation>
    </message>
    <message>
        <source>Drake Passage</source>
        <comment>Drake Passage</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>德雷克海峽</translation>
    </message>
    <message>
        <source>Scotia Sea</source>
        <comment>Scotia Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>斯科舍海</translation>
    </message>
    <message>
        <source>Weddell Sea</source>
        <comment>Weddell Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>威德爾海</translation>
    </message>
    <message>
        <source>Ross Sea</source>
        <comment>Ross Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>羅斯海</translation>
    </message>
    <message>
        <source>Red Sea</source>
        <comment>Red Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>紅海</translation>
    </message>
    <message>
        <source>Gulf of Aden</source>
        <comment>Gulf of Aden</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>亞丁灣</translation>
    </message>
    <message>
        <source>Persian Gulf</source>
        <comment>Persian Gulf</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>波斯灣</translation>
    </message>
    <message>
        <source>Gulf of Oman</source>
        <comment>Gulf of Oman</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>阿曼灣</translation>
    </message>
    <message>
        <source>Arabian Sea</source>
        <comment>Arabian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>阿拉伯海</translation>
    </message>
    <message>
        <source>Laccadive Sea</source>
        <comment>Laccadive Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>拉克代夫海</translation>
    </message>
    <message>
        <source>Andaman Sea</source>
        <comment>Andaman Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>安達曼海</translation>
    </message>
    <message>
        <source>Bay of Bengal</source>
        <comment>Bay of Bengal</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>孟加拉灣</translation>
    </message>
    <message>
        <source>Strait of Malacca</source>
        <comment>Strait of Malacca</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>麻六甲海峽</translation>
    </message>
    <message>
        <source>Gulf of Thailand</source>
        <comment>Gulf of Thailand</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>泰國灣</translation>
    </message>
    <message>
        <source>South China Sea</source>
        <comment>South China Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>南海</translation>
    </message>
    <message>
        <source>Sulu Sea</source>
        <comment>Sulu Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>蘇祿海</translation>
    </message>
    <message>
        <source>Celebes Sea</source>
        <comment>Celebes Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>蘇拉威西海</translation>
    </message>
    <message>
        <source>Java Sea</source>
        <comment>Java Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>爪哇海</translation>
    </message>
    <message>
        <source>Flores Sea</source>
        <comment>Flores Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>弗洛勒斯海</translation>
    </message>
    <message>
        <source>Banda Sea</source>
        <comment>Banda Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>班達海</translation>
    </message>
    <message>
        <source>Timor Sea</source>
        <comment>Timor Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>帝汶海</translation>
    </message>
    <message>
        <source>Arafura Sea</source>
        <comment>Arafura Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>阿拉弗拉海</translation>
    </message>
    <message>
        <source>Gulf of Carpentaria</source>
        <comment>Gulf of Carpentaria</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>卡奔塔利亞灣</translation>
    </message>
    <message>
        <source>Philippine Sea</source>
        <comment>Philippine Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>菲律賓海</translation>
    </message>
    <message>
        <source>East China Sea</source>
        <comment>East China Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>東海</translation>
    </message>
    <message>
        <source>Yellow Sea</source>
        <comment>Yellow Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>黃海</translation>
    </message>
    <message>
        <source>Sea of Japan</source>
        <comment>Sea of Japan</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>日本海</translation>
    </message>
    <message>
        <source>Sea of Okhotsk</source>
        <comment>Sea of Okhotsk</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>鄂霍次克海</translation>
    </message>
    <message>
        <source>Solomon Sea</source>
        <comment>Solomon Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>所羅門海</translation>
    </message>
    <message>
        <source>Bismarck Sea</source>
        <comment>Bismarck Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>俾斯麥海</translation>
    </message>
    <message>
        <source>Coral Sea</source>
        <comment>Coral Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>珊瑚海</translation>
    </message>
    <message>
        <source>Tasman Sea</source>
        <comment>Tasman Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>塔斯曼海</translation>
    </message>
    <message>
        <source>Great Australian Bight</source>
        <comment>Great Australian Bight</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>大澳大利亞灣</translation>
    </message>
    <message>
        <source>Mozambique Channel</source>
        <comment>Mozambique Channel</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>莫三比克海峽</translation>
    </message>
    <message>
        <source>Gulf of Guinea</source>
        <comment>Gulf of Guinea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>幾內亞灣</translation>
    </message>
    <message>
        <source>Arctic Ocean</source>
        <comment>Arctic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>北冰洋</translation>
    </message>
    <message>
        <source>Southern Ocean</source>
        <comment>Southern Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>南冰洋</translation>
    </message>
    <message>
        <source>North Atlantic Ocean</source>
        <comment>North Atlantic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>北大西洋</translation>
    </message>
    <message>
        <source>South Atlantic Ocean</source>
        <comment>South Atlantic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>南大西洋</translation>
    </message>
    <message>
        <source>Indian Ocean</source>
        <comment>Indian Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>印度洋</translation>
    </message>
    <message>
        <source>North Pacific Ocean</source>
        <comment>North Pacific Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>北太平洋</translation>
    </message>
    <message>
        <source>South Pacific Ocean</source>
        <comment>South Pacific Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>南太平洋</translation>
    </message>
</context>
</TS>
