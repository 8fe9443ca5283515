<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR" sourcelanguage="en_US">
<context>
    <name>Desktop</name>
    <message>
        <source>Picture Location Viewer</source>
        <extracomment>Kind of program, in the menu of programs</extracomment>
        <translation>사진 위치 보기</translation>
    </message>
    <message>
        <source>See where the selected picture was taken</source>
        <extracomment>Tool tip of the program in the menu of programs</extracomment>
        <translation>선택한 사진을 찍은 장소를 봅니다</translation>
    </message>
    <message>
        <source>photo;picture;GPS;location;map;EXIF;IPTC;geotag;coordinates;KML;raw;</source>
        <extracomment>Words by which the program is found in the menu of programs; each ends with a semicolon. GPS, EXIF, IPTC and KML stay</extracomment>
        <translation>사진;이미지;그림;GPS;위치;장소;지도;EXIF;IPTC;지오태그;좌표;KML;raw;</translation>
    </message>
    <message>
        <source>Open the Home Page</source>
        <extracomment>Action of the program&apos;s icon in docks and menus</extracomment>
        <translation>홈페이지 열기</translation>
    </message>
    <message>
        <source>Donate</source>
        <extracomment>Action of the program&apos;s icon in docks and menus: give the makers money</extracomment>
        <translation>기부</translation>
    </message>
    <message>
        <source>See where a picture was taken</source>
        <extracomment>Line under the program&apos;s name in software stores, without a full stop. At most 35 characters</extracomment>
        <translation>사진을 찍은 장소를 봅니다</translation>
    </message>
    <message>
        <source>Hasselblad raw image</source>
        <extracomment>Kind of file, in file managers. Hasselblad stays</extracomment>
        <translation>Hasselblad RAW 사진</translation>
    </message>
    <message>
        <source>Leaf raw image</source>
        <extracomment>Kind of file, in file managers. Leaf is a maker of cameras and stays</extracomment>
        <translation>Leaf RAW 사진</translation>
    </message>
    <message>
        <source>Pentax raw image</source>
        <extracomment>Kind of file, in file managers. Pentax stays</extracomment>
        <translation>Pentax RAW 사진</translation>
    </message>
    <message>
        <source>Show Where It Was Taken</source>
        <extracomment>Entry in the context menu of file managers, for a picture: shows its place in Pinorama</extracomment>
        <translation>찍은 장소 보기</translation>
    </message>
    <message>
        <source>Shows in Pinorama where the picture was taken</source>
        <extracomment>Tool tip of the entry &quot;Show Where It Was Taken&quot; in the context menu of file managers. Pinorama stays</extracomment>
        <translation>사진을 찍은 장소를 Pinorama에서 봅니다</translation>
    </message>
    <message>
        <source>Pinorama keeps one small window open beside the file manager. Select a picture there, and the window shows where it was taken: in words and on a small map, with preview, size, dates, coordinate, altitude and direction of view. It reads JPEG and the raw formats of common cameras, and it needs no network.</source>
        <extracomment>What the program is for, in software stores. Pinorama and JPEG stay</extracomment>
        <translation>Pinorama는 파일 관리자 옆에 작은 창 하나를 열어 둡니다. 파일 관리자에서 사진을 선택하면 창이 그 사진을 찍은 곳을 말과 작은 지도로 보여 주고, 미리 보기, 크기, 날짜, 좌표, 고도, 촬영 방향도 함께 보여 줍니다. JPEG와 널리 쓰이는 카메라의 RAW 형식을 읽으며 네트워크가 필요 없습니다.</translation>
    </message>
    <message>
        <source>From the window you can:</source>
        <extracomment>In software stores, above a list</extracomment>
        <translation>창에서 할 수 있는 일:</translation>
    </message>
    <message>
        <source>Fly a globe program to the place</source>
        <extracomment>In the list below &quot;From the window you can:&quot;. Globe programs are such as Google Earth</extracomment>
        <translation>지구본 프로그램으로 그곳까지 날아가기</translation>
    </message>
    <message>
        <source>Open the place in a web map of your choice</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>원하는 웹 지도에서 그곳 열기</translation>
    </message>
    <message>
        <source>Save the place as a KML placemark</source>
        <extracomment>In the list below &quot;From the window you can:&quot;. KML is a kind of file and stays</extracomment>
        <translation>그곳을 KML 위치표시로 저장하기</translation>
    </message>
    <message>
        <source>Copy the place as a coordinate, as a link or in words</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>그곳을 좌표, 링크 또는 말로 복사하기</translation>
    </message>
    <message>
        <source>Find the other pictures that were taken nearby</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>근처에서 찍은 다른 사진 찾기</translation>
    </message>
    <message>
        <source>Pictures are read in a separate, sandboxed process, so that a damaged or hostile file cannot harm the program.</source>
        <extracomment>The end of the description in software stores</extracomment>
        <translation>사진은 격리된 별도의 프로세스에서 읽으므로, 손상되었거나 악의적인 파일이 프로그램에 해를 끼칠 수 없습니다.</translation>
    </message>
    <message>
        <source>The Pinorama developers</source>
        <extracomment>The makers of the program, in software stores. Pinorama stays</extracomment>
        <translation>Pinorama 개발자</translation>
    </message>
    <message>
        <source>The place of a picture in words and on a map</source>
        <extracomment>Below a picture of the window in software stores, without a full stop</extracomment>
        <translation>말과 지도로 보여 주는 사진의 촬영 장소</translation>
    </message>
    <message>
        <source>A raw file, with its direction of view</source>
        <extracomment>Below a picture of the window in software stores, without a full stop. It shows a file of a camera&apos;s own format</extracomment>
        <translation>촬영 방향이 있는 RAW 파일</translation>
    </message>
    <message>
        <source>The window in a dark theme</source>
        <extracomment>Below a picture of the window in software stores, without a full stop</extracomment>
        <translation>어두운 테마의 창</translation>
    </message>
    <message>
        <source>The first release. Pinorama:</source>
        <extracomment>What is new in version 1.0.0, in software stores, above a list</extracomment>
        <translation>첫 번째 릴리스입니다. Pinorama는:</translation>
    </message>
    <message>
        <source>follows the selection of Nautilus, Nemo, Caja, Thunar, Dolphin, PCManFM, PCManFM-Qt, SpaceFM and Krusader</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;, so that it goes on from there. The names stay</extracomment>
        <translation>Nautilus, Nemo, Caja, Thunar, Dolphin, PCManFM, PCManFM-Qt, SpaceFM, Krusader의 선택을 따라갑니다</translation>
    </message>
    <message>
        <source>reads JPEG and the raw formats of common cameras, and on request HEIC, videos and more</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;. HEIC and JPEG stay</extracomment>
        <translation>JPEG와 널리 쓰이는 카메라의 RAW 형식을 읽고, 원하면 HEIC와 동영상 등도 읽습니다</translation>
    </message>
    <message>
        <source>says in words where a picture was taken and shows it on a small map, without a network</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;</extracomment>
        <translation>사진을 찍은 곳을 말로 알려 주고 작은 지도에 보여 줍니다. 네트워크는 필요 없습니다</translation>
    </message>
    <message>
        <source>finds the pictures that were taken nearby</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;</extracomment>
        <translation>근처에서 찍은 사진을 찾습니다</translation>
    </message>
    <message>
        <source>prints the same facts in a terminal with pinorama-info, for one picture or thousands</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;. pinorama-info is the name of a program and stays</extracomment>
        <translation>pinorama-info로 사진 한 장이든 수천 장이든 같은 정보를 터미널에 출력합니다</translation>
    </message>
    <message>
        <source>Taken at</source>
        <extracomment>Column in the list view of file managers: the place where the picture was taken, in words</extracomment>
        <translation>촬영 장소</translation>
    </message>
    <message>
        <source>The place where the picture was taken</source>
        <extracomment>Explains the column &quot;Taken at&quot; in the settings of file managers</extracomment>
        <translation>사진이 촬영된 장소</translation>
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
        <translation>Google 지도</translation>
    </message>
    <message>
        <source>Bing Maps</source>
        <comment>a3</comment>
        <extracomment>In the menu of map services: the name of a web map. Most languages keep it.</extracomment>
        <translation>Bing 지도</translation>
    </message>
    <message>
        <source>Apple Maps</source>
        <comment>a4</comment>
        <extracomment>In the menu of map services: the name of a web map. Most languages keep it.</extracomment>
        <translation>Apple 지도</translation>
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
        <translation>거리 사진 (Mapillary)</translation>
    </message>
    <message>
        <source>Wikipedia articles nearby</source>
        <comment>a7</comment>
        <extracomment>In the menu of map services: opens the list of Wikipedia articles about places nearby.</extracomment>
        <translation>근처의 위키백과 문서</translation>
    </message>
    <message>
        <source>All map services (GeoHack)</source>
        <comment>a8</comment>
        <extracomment>In the menu of map services: opens a list of all web maps that show the place. GeoHack is a name and stays.</extracomment>
        <translation>모든 지도 서비스 (GeoHack)</translation>
    </message>
    <message>
        <source>Map program of this computer</source>
        <comment>a9</comment>
        <extracomment>In the menu of map services: opens the place in the map program that is installed.</extracomment>
        <translation>이 컴퓨터의 지도 프로그램</translation>
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
        <translation>바이트</translation>
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
        <translation>{country} {town} 근처</translation>
    </message>
    <message>
        <source>Near {town}</source>
        <comment>nearTown</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>{town} 근처</translation>
    </message>
    <message>
        <source>{distance} km {direction} of {town}, {country}</source>
        <comment>away</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>{country} {town}에서 {direction}쪽으로 {distance} km</translation>
    </message>
    <message>
        <source>{distance} km {direction} of {town}</source>
        <comment>awayTown</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>{town}에서 {direction}쪽으로 {distance} km</translation>
    </message>
    <message>
        <source>{sea}, {distance} km from {place}</source>
        <comment>atSea</comment>
        <extracomment>A place at sea: {sea} is one of the names below, {place} a town or islands.</extracomment>
        <translation>{sea}, {place}에서 {distance} km</translation>
    </message>
    <message>
        <source>N</source>
        <comment>compass0</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>북</translation>
    </message>
    <message>
        <source>NNE</source>
        <comment>compass1</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>북북동</translation>
    </message>
    <message>
        <source>NE</source>
        <comment>compass2</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>북동</translation>
    </message>
    <message>
        <source>ENE</source>
        <comment>compass3</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>동북동</translation>
    </message>
    <message>
        <source>E</source>
        <comment>compass4</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>동</translation>
    </message>
    <message>
        <source>ESE</source>
        <comment>compass5</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>동남동</translation>
    </message>
    <message>
        <source>SE</source>
        <comment>compass6</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>남동</translation>
    </message>
    <message>
        <source>SSE</source>
        <comment>compass7</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>남남동</translation>
    </message>
    <message>
        <source>S</source>
        <comment>compass8</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>남</translation>
    </message>
    <message>
        <source>SSW</source>
        <comment>compass9</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>남남서</translation>
    </message>
    <message>
        <source>SW</source>
        <comment>compass10</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>남서</translation>
    </message>
    <message>
        <source>WSW</source>
        <comment>compass11</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>서남서</translation>
    </message>
    <message>
        <source>W</source>
        <comment>compass12</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>서</translation>
    </message>
    <message>
        <source>WNW</source>
        <comment>compass13</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>서북서</translation>
    </message>
    <message>
        <source>NW</source>
        <comment>compass14</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>북서</translation>
    </message>
    <message>
        <source>NNW</source>
        <comment>compass15</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>북북서</translation>
    </message>
    <message>
        <source>{direction} (true)</source>
        <comment>trueNorth</comment>
        <extracomment>The direction of view of a picture, as the two kinds of north have it. {direction} is a point of the compass and stays as it is.</extracomment>
        <translation>{direction} (진북)</translation>
    </message>
    <message>
        <source>{direction} (magnetic)</source>
        <comment>magneticNorth</comment>
        <extracomment>The direction of view of a picture, as the two kinds of north have it. {direction} is a point of the compass and stays as it is.</extracomment>
        <translation>{direction} (자북)</translation>
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
        <translation>위성의 시계에 따라, 장소의 시간으로 나타냅니다.</translation>
    </message>
    <message>
        <source>By the clock of the satellites, which is in UTC.</source>
        <comment>takenBySatellitesInUTC</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>위성의 시계에 따른 UTC입니다.</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock, which was set to {zone}.</source>
        <comment>takenByCamera</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>{zone}(으)로 맞춘 카메라의 시계에 따릅니다.</translation>
    </message>
    <message>
        <source>In the time of the place. The camera&apos;s clock was set to {zone} and showed {time}.</source>
        <comment>takenByCameraElsewhere</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>장소의 시간입니다. 카메라의 시계는 {zone}(으)로 맞춰져 있었고 {time}을(를) 가리켰습니다.</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock. The picture does not state its time zone; the one shown is that of the place.</source>
        <comment>takenByCameraAssumed</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>카메라의 시계에 따릅니다. 사진에 시간대가 나와 있지 않아 장소의 시간대를 보여 줍니다.</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock. Its time zone is not known.</source>
        <comment>takenByCameraWithoutZone</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>카메라의 시계에 따릅니다. 시간대는 알 수 없습니다.</translation>
    </message>
    <message>
        <source>Sea of Azov</source>
        <comment>Sea of Azov</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>아조프해</translation>
    </message>
    <message>
        <source>Black Sea</source>
        <comment>Black Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>흑해</translation>
    </message>
    <message>
        <source>Caspian Sea</source>
        <comment>Caspian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>카스피해</translation>
    </message>
    <message>
        <source>Adriatic Sea</source>
        <comment>Adriatic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>아드리아해</translation>
    </message>
    <message>
        <source>Aegean Sea</source>
        <comment>Aegean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>에게해</translation>
    </message>
    <message>
        <source>Ionian Sea</source>
        <comment>Ionian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>이오니아해</translation>
    </message>
    <message>
        <source>Tyrrhenian Sea</source>
        <comment>Tyrrhenian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>티레니아해</translation>
    </message>
    <message>
        <source>Ligurian Sea</source>
        <comment>Ligurian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>리구리아해</translation>
    </message>
    <message>
        <source>Alboran Sea</source>
        <comment>Alboran Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>알보란해</translation>
    </message>
    <message>
        <source>Mediterranean Sea</source>
        <comment>Mediterranean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>지중해</translation>
    </message>
    <message>
        <source>Gulf of Bothnia</source>
        <comment>Gulf of Bothnia</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>보트니아만</translation>
    </message>
    <message>
        <source>Gulf of Finland</source>
        <comment>Gulf of Finland</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>핀란드만</translation>
    </message>
    <message>
        <source>Baltic Sea</source>
        <comment>Baltic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>발트해</translation>
    </message>
    <message>
        <source>Kattegat</source>
        <comment>Kattegat</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>카테가트 해협</translation>
    </message>
    <message>
        <source>Skagerrak</source>
        <comment>Skagerrak</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>스카게라크 해협</translation>
    </message>
    <message>
        <source>English Channel</source>
        <comment>English Channel</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>영국 해협</translation>
    </message>
    <message>
        <source>Irish Sea</source>
        <comment>Irish Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>아일랜드해</translation>
    </message>
    <message>
        <source>Celtic Sea</source>
        <comment>Celtic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>켈트해</translation>
    </message>
    <message>
        <source>Bay of Biscay</source>
        <comment>Bay of Biscay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>비스케이만</translation>
    </message>
    <message>
        <source>North Sea</source>
        <comment>North Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>북해</translation>
    </message>
    <message>
        <source>Norwegian Sea</source>
        <comment>Norwegian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>노르웨이해</translation>
    </message>
    <message>
        <source>White Sea</source>
        <comment>White Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>백해</translation>
    </message>
    <message>
        <source>Barents Sea</source>
        <comment>Barents Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>바렌츠해</translation>
    </message>
    <message>
        <source>Kara Sea</source>
        <comment>Kara Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>카라해</translation>
    </message>
    <message>
        <source>Laptev Sea</source>
        <comment>Laptev Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>랍테프해</translation>
    </message>
    <message>
        <source>East Siberian Sea</source>
        <comment>East Siberian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>동시베리아해</translation>
    </message>
    <message>
        <source>Chukchi Sea</source>
        <comment>Chukchi Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>축치해</translation>
    </message>
    <message>
        <source>Beaufort Sea</source>
        <comment>Beaufort Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>보퍼트해</translation>
    </message>
    <message>
        <source>Greenland Sea</source>
        <comment>Greenland Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>그린란드해</translation>
    </message>
    <message>
        <source>Denmark Strait</source>
        <comment>Denmark Strait</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>덴마크 해협</translation>
    </message>
    <message>
        <source>Baffin Bay</source>
        <comment>Baffin Bay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>배핀만</translation>
    </message>
    <message>
        <source>Davis Strait</source>
        <comment>Davis Strait</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>데이비스 해협</translation>
    </message>
    <message>
        <source>Hudson Bay</source>
        <comment>Hudson Bay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>허드슨만</translation>
    </message>
    <message>
        <source>Gulf of Saint Lawrence</source>
        <comment>Gulf of Saint Lawrence</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>세인트로렌스만</translation>
    </message>
    <message>
        <source>Labrador Sea</source>
        <comment>Labrador Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>래브라도해</translation>
    </message>
    <message>
        <source>Gulf of Mexico</source>
        <comment>Gulf of Mexico</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>멕시코만</translation>
    </message>
    <message>
        <source>Caribbean Sea</source>
        <comment>Caribbean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>카리브해</translation>
    </message>
    <message>
        <source>Gulf of California</source>
        <comment>Gulf of California</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>캘리포니아만</translation>
    </message>
    <message>
        <source>Gulf of Alaska</source>
        <comment>Gulf of Alaska</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>알래스카만</translation>
    </message>
    <message>
        <source>Bering Sea</source>
        <comment>Bering Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>베링해</translation>
    </message>
    <message>
        <source>Drake Passage</source>
        <comment>Drake Passage</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>드레이크 해협</translation>
    </message>
    <message>
        <source>Scotia Sea</source>
        <comment>Scotia Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>스코샤해</translation>
    </message>
    <message>
        <source>Weddell Sea</source>
        <comment>Weddell Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>웨들해</translation>
    </message>
    <message>
        <source>Ross Sea</source>
        <comment>Ross Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>로스해</translation>
    </message>
    <message>
        <source>Red Sea</source>
        <comment>Red Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>홍해</translation>
    </message>
    <message>
        <source>Gulf of Aden</source>
        <comment>Gulf of Aden</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>아덴만</translation>
    </message>
    <message>
        <source>Persian Gulf</source>
        <comment>Persian Gulf</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>페르시아만</translation>
    </message>
    <message>
        <source>Gulf of Oman</source>
        <comment>Gulf of Oman</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>오만만</translation>
    </message>
    <message>
        <source>Arabian Sea</source>
        <comment>Arabian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>아라비아해</translation>
    </message>
    <message>
        <source>Laccadive Sea</source>
        <comment>Laccadive Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>래카다이브해</translation>
    </message>
    <message>
        <source>Andaman Sea</source>
        <comment>Andaman Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>안다만해</translation>
    </message>
    <message>
        <source>Bay of Bengal</source>
        <comment>Bay of Bengal</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>벵골만</translation>
    </message>
    <message>
        <source>Strait of Malacca</source>
        <comment>Strait of Malacca</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>믈라카 해협</translation>
    </message>
    <message>
        <source>Gulf of Thailand</source>
        <comment>Gulf of Thailand</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>타이만</translation>
    </message>
    <message>
        <source>South China Sea</source>
        <comment>South China Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>남중국해</translation>
    </message>
    <message>
        <source>Sulu Sea</source>
        <comment>Sulu Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>술루해</translation>
    </message>
    <message>
        <source>Celebes Sea</source>
        <comment>Celebes Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>술라웨시해</translation>
    </message>
    <message>
        <source>Java Sea</source>
        <comment>Java Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>자바해</translation>
    </message>
    <message>
        <source>Flores Sea</source>
        <comment>Flores Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>플로레스해</translation>
    </message>
    <message>
        <source>Banda Sea</source>
        <comment>Banda Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>반다해</translation>
    </message>
    <message>
        <source>Timor Sea</source>
        <comment>Timor Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>티모르해</translation>
    </message>
    <message>
        <source>Arafura Sea</source>
        <comment>Arafura Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>아라푸라해</translation>
    </message>
    <message>
        <source>Gulf of Carpentaria</source>
        <comment>Gulf of Carpentaria</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>카펀테리아만</translation>
    </message>
    <message>
        <source>Philippine Sea</source>
        <comment>Philippine Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>필리핀해</translation>
    </message>
    <message>
        <source>East China Sea</source>
        <comment>East China Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>동중국해</translation>
    </message>
    <message>
        <source>Yellow Sea</source>
        <comment>Yellow Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>황해</translation>
    </message>
    <message>
        <source>Sea of Japan</source>
        <comment>Sea of Japan</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translatorcomment>The name of this sea on Korean maps</translatorcomment>
        <translation>동해</translation>
    </message>
    <message>
        <source>Sea of Okhotsk</source>
        <comment>Sea of Okhotsk</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>오호츠크해</translation>
    </message>
    <message>
        <source>Solomon Sea</source>
        <comment>Solomon Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>솔로몬해</translation>
    </message>
    <message>
        <source>Bismarck Sea</source>
        <comment>Bismarck Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>비스마르크해</translation>
    </message>
    <message>
        <source>Coral Sea</source>
        <comment>Coral Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>산호해</translation>
    </message>
    <message>
        <source>Tasman Sea</source>
        <comment>Tasman Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>태즈먼해</translation>
    </message>
    <message>
        <source>Great Australian Bight</source>
        <comment>Great Australian Bight</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>그레이트오스트레일리아만</translation>
    </message>
    <message>
        <source>Mozambique Channel</source>
        <comment>Mozambique Channel</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>모잠비크 해협</translation>
    </message>
    <message>
        <source>Gulf of Guinea</source>
        <comment>Gulf of Guinea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>기니만</translation>
    </message>
    <message>
        <source>Arctic Ocean</source>
        <comment>Arctic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>북극해</translation>
    </message>
    <message>
        <source>Southern Ocean</source>
        <comment>Southern Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>남극해</translation>
    </message>
    <message>
        <source>North Atlantic Ocean</source>
        <comment>North Atlantic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>북대서양</translation>
    </message>
    <message>
        <source>South Atlantic Ocean</source>
        <comment>South Atlantic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>남대서양</translation>
    </message>
    <message>
        <source>Indian Ocean</source>
        <comment>Indian Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>인도양</translation>
    </message>
    <message>
        <source>North Pacific Ocean</source>
        <comment>North Pacific Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>북태평양</translation>
    </message>
    <message>
        <source>South Pacific Ocean</source>
        <comment>South Pacific Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>남태평양</translation>
    </message>
</context>
</TS>
