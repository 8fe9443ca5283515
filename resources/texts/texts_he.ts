<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="he_IL" sourcelanguage="en_US">
<context>
    <name>Desktop</name>
    <message>
        <source>Picture Location Viewer</source>
        <extracomment>Kind of program, in the menu of programs</extracomment>
        <translation>מציג מיקום התמונה</translation>
    </message>
    <message>
        <source>See where the selected picture was taken</source>
        <extracomment>Tool tip of the program in the menu of programs</extracomment>
        <translation>מראה היכן צולמה התמונה שנבחרה</translation>
    </message>
    <message>
        <source>photo;picture;GPS;location;map;EXIF;IPTC;geotag;coordinates;KML;raw;</source>
        <extracomment>Words by which the program is found in the menu of programs; each ends with a semicolon. GPS, EXIF, IPTC and KML stay</extracomment>
        <translation>צילום;תמונה;GPS;מיקום;מקום;מפה;EXIF;IPTC;תיוג גאוגרפי;קואורדינטות;KML;raw;</translation>
    </message>
    <message>
        <source>Open the Home Page</source>
        <extracomment>Action of the program&apos;s icon in docks and menus</extracomment>
        <translation>פתיחת דף הבית</translation>
    </message>
    <message>
        <source>Donate</source>
        <extracomment>Action of the program&apos;s icon in docks and menus: give the makers money</extracomment>
        <translation>תרומה</translation>
    </message>
    <message>
        <source>See where a picture was taken</source>
        <extracomment>Line under the program&apos;s name in software stores, without a full stop. At most 35 characters</extracomment>
        <translation>מראה היכן צולמה תמונה</translation>
    </message>
    <message>
        <source>Hasselblad raw image</source>
        <extracomment>Kind of file, in file managers. Hasselblad stays</extracomment>
        <translatorcomment>As the shared MIME types call raw files in Hebrew; elsewhere RAW, as photographers write it</translatorcomment>
        <translation>תמונה גולמית של Hasselblad</translation>
    </message>
    <message>
        <source>Leaf raw image</source>
        <extracomment>Kind of file, in file managers. Leaf is a maker of cameras and stays</extracomment>
        <translation>תמונה גולמית של Leaf</translation>
    </message>
    <message>
        <source>Pentax raw image</source>
        <extracomment>Kind of file, in file managers. Pentax stays</extracomment>
        <translation>תמונה גולמית של Pentax</translation>
    </message>
    <message>
        <source>Show Where It Was Taken</source>
        <extracomment>Entry in the context menu of file managers, for a picture: shows its place in Pinorama</extracomment>
        <translation>הצגת מקום הצילום</translation>
    </message>
    <message>
        <source>Shows in Pinorama where the picture was taken</source>
        <extracomment>Tool tip of the entry &quot;Show Where It Was Taken&quot; in the context menu of file managers. Pinorama stays</extracomment>
        <translation>מראה ב־Pinorama היכן צולמה התמונה</translation>
    </message>
    <message>
        <source>Pinorama keeps one small window open beside the file manager. Select a picture there, and the window shows where it was taken: in words and on a small map, with preview, size, dates, coordinate, altitude and direction of view. It reads JPEG and the raw formats of common cameras, and it needs no network.</source>
        <extracomment>What the program is for, in software stores. Pinorama and JPEG stay</extracomment>
        <translation>התוכנית Pinorama משאירה חלון קטן אחד פתוח לצד מנהל הקבצים. כשבוחרים שם תמונה, החלון מראה היכן היא צולמה: במילים ועל מפה קטנה, עם תצוגה מקדימה, גודל, תאריכים, קואורדינטות, גובה וכיוון הצילום. היא קוראת JPEG ואת קובצי ה־RAW של מצלמות נפוצות, ואינה זקוקה לרשת.</translation>
    </message>
    <message>
        <source>From the window you can:</source>
        <extracomment>In software stores, above a list</extracomment>
        <translation>מהחלון אפשר:</translation>
    </message>
    <message>
        <source>Fly a globe program to the place</source>
        <extracomment>In the list below &quot;From the window you can:&quot;. Globe programs are such as Google Earth</extracomment>
        <translation>לטוס אל המקום בתוכנית גלובוס</translation>
    </message>
    <message>
        <source>Open the place in a web map of your choice</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>לפתוח את המקום במפה מקוונת לפי בחירה</translation>
    </message>
    <message>
        <source>Save the place as a KML placemark</source>
        <extracomment>In the list below &quot;From the window you can:&quot;. KML is a kind of file and stays</extracomment>
        <translation>לשמור את המקום כסימון מקום KML</translation>
    </message>
    <message>
        <source>Copy the place as a coordinate, as a link or in words</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>להעתיק את המקום כקואורדינטות, כקישור או במילים</translation>
    </message>
    <message>
        <source>Find the other pictures that were taken nearby</source>
        <extracomment>In the list below &quot;From the window you can:&quot;</extracomment>
        <translation>למצוא תמונות נוספות שצולמו בסביבה</translation>
    </message>
    <message>
        <source>Pictures are read in a separate, sandboxed process, so that a damaged or hostile file cannot harm the program.</source>
        <extracomment>The end of the description in software stores</extracomment>
        <translation>התמונות נקראות בתהליך נפרד ומבודד, כך שקובץ פגום או עוין אינו יכול להזיק לתוכנית.</translation>
    </message>
    <message>
        <source>The Pinorama developers</source>
        <extracomment>The makers of the program, in software stores. Pinorama stays</extracomment>
        <translation>המפתחים של Pinorama</translation>
    </message>
    <message>
        <source>The place of a picture in words and on a map</source>
        <extracomment>Below a picture of the window in software stores, without a full stop</extracomment>
        <translation>המקום של תמונה במילים ועל מפה</translation>
    </message>
    <message>
        <source>A raw file, with its direction of view</source>
        <extracomment>Below a picture of the window in software stores, without a full stop. It shows a file of a camera&apos;s own format</extracomment>
        <translation>קובץ RAW עם כיוון הצילום</translation>
    </message>
    <message>
        <source>The window in a dark theme</source>
        <extracomment>Below a picture of the window in software stores, without a full stop</extracomment>
        <translation>החלון בערכת נושא כהה</translation>
    </message>
    <message>
        <source>The first release. Pinorama:</source>
        <extracomment>What is new in version 1.0.0, in software stores, above a list</extracomment>
        <translation>הגרסה הראשונה. התוכנית Pinorama:</translation>
    </message>
    <message>
        <source>follows the selection of Nautilus, Nemo, Caja, Thunar, Dolphin, PCManFM, PCManFM-Qt, SpaceFM and Krusader</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;, so that it goes on from there. The names stay</extracomment>
        <translation>עוקבת אחר הבחירה ב־Nautilus, Nemo, Caja, Thunar, Dolphin, PCManFM, PCManFM-Qt, SpaceFM ו־Krusader</translation>
    </message>
    <message>
        <source>reads JPEG and the raw formats of common cameras, and on request HEIC, videos and more</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;. HEIC and JPEG stay</extracomment>
        <translation>קוראת JPEG ואת קובצי ה־RAW של מצלמות נפוצות, ולפי בקשה HEIC, סרטונים ועוד</translation>
    </message>
    <message>
        <source>says in words where a picture was taken and shows it on a small map, without a network</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;</extracomment>
        <translation>מתארת במילים היכן צולמה תמונה ומראה זאת על מפה קטנה, ללא רשת</translation>
    </message>
    <message>
        <source>finds the pictures that were taken nearby</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;</extracomment>
        <translation>מוצאת את התמונות שצולמו בסביבה</translation>
    </message>
    <message>
        <source>prints the same facts in a terminal with pinorama-info, for one picture or thousands</source>
        <extracomment>In the list below &quot;The first release. Pinorama:&quot;. pinorama-info is the name of a program and stays</extracomment>
        <translation>מדפיסה את אותו המידע במסוף בעזרת pinorama-info, לתמונה אחת או לאלפים</translation>
    </message>
    <message>
        <source>Taken at</source>
        <extracomment>Column in the list view of file managers: the place where the picture was taken, in words</extracomment>
        <translation>מקום הצילום</translation>
    </message>
    <message>
        <source>The place where the picture was taken</source>
        <extracomment>Explains the column &quot;Taken at&quot; in the settings of file managers</extracomment>
        <translation>המקום שבו צולמה התמונה</translation>
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
        <translation>מפות Google</translation>
    </message>
    <message>
        <source>Bing Maps</source>
        <comment>a3</comment>
        <extracomment>In the menu of map services: the name of a web map. Most languages keep it.</extracomment>
        <translation>מפות Bing</translation>
    </message>
    <message>
        <source>Apple Maps</source>
        <comment>a4</comment>
        <extracomment>In the menu of map services: the name of a web map. Most languages keep it.</extracomment>
        <translation>מפות Apple</translation>
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
        <translation>תמונות רחוב (Mapillary)</translation>
    </message>
    <message>
        <source>Wikipedia articles nearby</source>
        <comment>a7</comment>
        <extracomment>In the menu of map services: opens the list of Wikipedia articles about places nearby.</extracomment>
        <translation>ערכי ויקיפדיה בסביבה</translation>
    </message>
    <message>
        <source>All map services (GeoHack)</source>
        <comment>a8</comment>
        <extracomment>In the menu of map services: opens a list of all web maps that show the place. GeoHack is a name and stays.</extracomment>
        <translation>כל שירותי המפות (GeoHack)</translation>
    </message>
    <message>
        <source>Map program of this computer</source>
        <comment>a9</comment>
        <extracomment>In the menu of map services: opens the place in the map program that is installed.</extracomment>
        <translation>תוכנית המפות של המחשב הזה</translation>
    </message>
</context>
<context>
    <name>Localizable</name>
    <message>
        <source> KB</source>
        <comment>STR#1001:46</comment>
        <extracomment>Unit of a file&apos;s size, in the window: kilobytes, megabytes, gigabytes, terabytes. It follows the number directly, so it begins with the space that the language wants there (&quot;1,024.0&quot; and &quot; KB&quot; give &quot;1,024.0 KB&quot;).</extracomment>
        <translation> ק״ב</translation>
    </message>
    <message>
        <source> MB</source>
        <comment>STR#1001:3</comment>
        <extracomment>Unit of a file&apos;s size, in the window: kilobytes, megabytes, gigabytes, terabytes. It follows the number directly, so it begins with the space that the language wants there (&quot;1,024.0&quot; and &quot; KB&quot; give &quot;1,024.0 KB&quot;).</extracomment>
        <translation> מ״ב</translation>
    </message>
    <message>
        <source> GB</source>
        <comment>STR#1001:31</comment>
        <extracomment>Unit of a file&apos;s size, in the window: kilobytes, megabytes, gigabytes, terabytes. It follows the number directly, so it begins with the space that the language wants there (&quot;1,024.0&quot; and &quot; KB&quot; give &quot;1,024.0 KB&quot;).</extracomment>
        <translation> ג״ב</translation>
    </message>
    <message>
        <source> TB</source>
        <comment>STR#1001:123</comment>
        <extracomment>Unit of a file&apos;s size, in the window: kilobytes, megabytes, gigabytes, terabytes. It follows the number directly, so it begins with the space that the language wants there (&quot;1,024.0&quot; and &quot; KB&quot; give &quot;1,024.0 KB&quot;).</extracomment>
        <translation> ט״ב</translation>
    </message>
    <message>
        <source>bytes</source>
        <comment>STR#1001:93</comment>
        <extracomment>In the window, after the exact count of a file&apos;s size: &quot;0.5 KB (512 bytes)&quot;. The count is mostly large.</extracomment>
        <translation>בתים</translation>
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
        <translation>ליד {town}, {country}</translation>
    </message>
    <message>
        <source>Near {town}</source>
        <comment>nearTown</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>ליד {town}</translation>
    </message>
    <message>
        <source>{distance} km {direction} of {town}, {country}</source>
        <comment>away</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>{distance} ק״מ {direction} מ־{town}, {country}</translation>
    </message>
    <message>
        <source>{distance} km {direction} of {town}</source>
        <comment>awayTown</comment>
        <extracomment>A place on land. {town} and {country} are names as they stand on maps, {distance} is a number of kilometres and {direction} one of the points of the compass below. The names in braces may stand in any order. The form without {country} is for places such as Singapore, which are town and country.</extracomment>
        <translation>{distance} ק״מ {direction} מ־{town}</translation>
    </message>
    <message>
        <source>{sea}, {distance} km from {place}</source>
        <comment>atSea</comment>
        <extracomment>A place at sea: {sea} is one of the names below, {place} a town or islands.</extracomment>
        <translation>{sea}, {distance} ק״מ מ־{place}</translation>
    </message>
    <message>
        <source>N</source>
        <comment>compass0</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>צפ׳</translation>
    </message>
    <message>
        <source>NNE</source>
        <comment>compass1</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>צפ׳־צפ׳־מז׳</translation>
    </message>
    <message>
        <source>NE</source>
        <comment>compass2</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>צפ׳־מז׳</translation>
    </message>
    <message>
        <source>ENE</source>
        <comment>compass3</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>מז׳־צפ׳־מז׳</translation>
    </message>
    <message>
        <source>E</source>
        <comment>compass4</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>מז׳</translation>
    </message>
    <message>
        <source>ESE</source>
        <comment>compass5</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>מז׳־דר׳־מז׳</translation>
    </message>
    <message>
        <source>SE</source>
        <comment>compass6</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>דר׳־מז׳</translation>
    </message>
    <message>
        <source>SSE</source>
        <comment>compass7</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>דר׳־דר׳־מז׳</translation>
    </message>
    <message>
        <source>S</source>
        <comment>compass8</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>דר׳</translation>
    </message>
    <message>
        <source>SSW</source>
        <comment>compass9</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>דר׳־דר׳־מע׳</translation>
    </message>
    <message>
        <source>SW</source>
        <comment>compass10</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>דר׳־מע׳</translation>
    </message>
    <message>
        <source>WSW</source>
        <comment>compass11</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>מע׳־דר׳־מע׳</translation>
    </message>
    <message>
        <source>W</source>
        <comment>compass12</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>מע׳</translation>
    </message>
    <message>
        <source>WNW</source>
        <comment>compass13</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>מע׳־צפ׳־מע׳</translation>
    </message>
    <message>
        <source>NW</source>
        <comment>compass14</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>צפ׳־מע׳</translation>
    </message>
    <message>
        <source>NNW</source>
        <comment>compass15</comment>
        <extracomment>A point of the compass, as short as on a compass. The points go from north on, clockwise; each is a sixteenth of the circle.</extracomment>
        <translation>צפ׳־צפ׳־מע׳</translation>
    </message>
    <message>
        <source>{direction} (true)</source>
        <comment>trueNorth</comment>
        <extracomment>The direction of view of a picture, as the two kinds of north have it. {direction} is a point of the compass and stays as it is.</extracomment>
        <translation>{direction} (אמיתי)</translation>
    </message>
    <message>
        <source>{direction} (magnetic)</source>
        <comment>magneticNorth</comment>
        <extracomment>The direction of view of a picture, as the two kinds of north have it. {direction} is a point of the compass and stays as it is.</extracomment>
        <translation>{direction} (מגנטי)</translation>
    </message>
    <message>
        <source>{time} ({zone})</source>
        <comment>takenIn</comment>
        <extracomment>When a picture was taken, in the window. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translatorcomment>No parentheses: ICU&apos;s Hebrew names of time zones have some of their own</translatorcomment>
        <translation>{time} – {zone}</translation>
    </message>
    <message>
        <source>By the clock of the satellites, in the time of the place.</source>
        <comment>takenBySatellites</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>לפי שעון הלוויינים, בשעון המקום.</translation>
    </message>
    <message>
        <source>By the clock of the satellites, which is in UTC.</source>
        <comment>takenBySatellitesInUTC</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>לפי שעון הלוויינים, ב־UTC.</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock, which was set to {zone}.</source>
        <comment>takenByCamera</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>לפי שעון המצלמה, שכוון ל־{zone}.</translation>
    </message>
    <message>
        <source>In the time of the place. The camera&apos;s clock was set to {zone} and showed {time}.</source>
        <comment>takenByCameraElsewhere</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>בשעון המקום. שעון המצלמה כוון ל־{zone} והראה {time}.</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock. The picture does not state its time zone; the one shown is that of the place.</source>
        <comment>takenByCameraAssumed</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>לפי שעון המצלמה. התמונה אינה מציינת את אזור הזמן שלו; מוצג זה של המקום.</translation>
    </message>
    <message>
        <source>By the camera&apos;s clock. Its time zone is not known.</source>
        <comment>takenByCameraWithoutZone</comment>
        <extracomment>Tool tip of the time at which a picture was taken: whose clock gave it. {time} is a date and a time, {zone} a time zone: its name or &quot;UTC+2&quot;.</extracomment>
        <translation>לפי שעון המצלמה. אזור הזמן שלו אינו ידוע.</translation>
    </message>
    <message>
        <source>Sea of Azov</source>
        <comment>Sea of Azov</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים אזוב</translation>
    </message>
    <message>
        <source>Black Sea</source>
        <comment>Black Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים השחור</translation>
    </message>
    <message>
        <source>Caspian Sea</source>
        <comment>Caspian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים הכספי</translation>
    </message>
    <message>
        <source>Adriatic Sea</source>
        <comment>Adriatic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים האדריאטי</translation>
    </message>
    <message>
        <source>Aegean Sea</source>
        <comment>Aegean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים האגאי</translation>
    </message>
    <message>
        <source>Ionian Sea</source>
        <comment>Ionian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים היוני</translation>
    </message>
    <message>
        <source>Tyrrhenian Sea</source>
        <comment>Tyrrhenian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים הטירני</translation>
    </message>
    <message>
        <source>Ligurian Sea</source>
        <comment>Ligurian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים הליגורי</translation>
    </message>
    <message>
        <source>Alboran Sea</source>
        <comment>Alboran Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים אלבוראן</translation>
    </message>
    <message>
        <source>Mediterranean Sea</source>
        <comment>Mediterranean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים התיכון</translation>
    </message>
    <message>
        <source>Gulf of Bothnia</source>
        <comment>Gulf of Bothnia</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ בותניה</translation>
    </message>
    <message>
        <source>Gulf of Finland</source>
        <comment>Gulf of Finland</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ פינלנד</translation>
    </message>
    <message>
        <source>Baltic Sea</source>
        <comment>Baltic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים הבלטי</translation>
    </message>
    <message>
        <source>Kattegat</source>
        <comment>Kattegat</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>קטגט</translation>
    </message>
    <message>
        <source>Skagerrak</source>
        <comment>Skagerrak</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>סקגרק</translation>
    </message>
    <message>
        <source>English Channel</source>
        <comment>English Channel</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>תעלת למאנש</translation>
    </message>
    <message>
        <source>Irish Sea</source>
        <comment>Irish Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים האירי</translation>
    </message>
    <message>
        <source>Celtic Sea</source>
        <comment>Celtic Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים הקלטי</translation>
    </message>
    <message>
        <source>Bay of Biscay</source>
        <comment>Bay of Biscay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ ביסקאיה</translation>
    </message>
    <message>
        <source>North Sea</source>
        <comment>North Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים הצפוני</translation>
    </message>
    <message>
        <source>Norwegian Sea</source>
        <comment>Norwegian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים הנורווגי</translation>
    </message>
    <message>
        <source>White Sea</source>
        <comment>White Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים הלבן</translation>
    </message>
    <message>
        <source>Barents Sea</source>
        <comment>Barents Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים ברנץ</translation>
    </message>
    <message>
        <source>Kara Sea</source>
        <comment>Kara Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים קארה</translation>
    </message>
    <message>
        <source>Laptev Sea</source>
        <comment>Laptev Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים לפטב</translation>
    </message>
    <message>
        <source>East Siberian Sea</source>
        <comment>East Siberian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים מזרח סיביר</translation>
    </message>
    <message>
        <source>Chukchi Sea</source>
        <comment>Chukchi Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים צ׳וקצ׳י</translation>
    </message>
    <message>
        <source>Beaufort Sea</source>
        <comment>Beaufort Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים בופור</translation>
    </message>
    <message>
        <source>Greenland Sea</source>
        <comment>Greenland Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים גרינלנד</translation>
    </message>
    <message>
        <source>Denmark Strait</source>
        <comment>Denmark Strait</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מצר דנמרק</translation>
    </message>
    <message>
        <source>Baffin Bay</source>
        <comment>Baffin Bay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ באפין</translation>
    </message>
    <message>
        <source>Davis Strait</source>
        <comment>Davis Strait</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מצר דייוויס</translation>
    </message>
    <message>
        <source>Hudson Bay</source>
        <comment>Hudson Bay</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ הדסון</translation>
    </message>
    <message>
        <source>Gulf of Saint Lawrence</source>
        <comment>Gulf of Saint Lawrence</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ סנט לורנס</translation>
    </message>
    <message>
        <source>Labrador Sea</source>
        <comment>Labrador Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים לברדור</translation>
    </message>
    <message>
        <source>Gulf of Mexico</source>
        <comment>Gulf of Mexico</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ מקסיקו</translation>
    </message>
    <message>
        <source>Caribbean Sea</source>
        <comment>Caribbean Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים הקריבי</translation>
    </message>
    <message>
        <source>Gulf of California</source>
        <comment>Gulf of California</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ קליפורניה</translation>
    </message>
    <message>
        <source>Gulf of Alaska</source>
        <comment>Gulf of Alaska</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ אלסקה</translation>
    </message>
    <message>
        <source>Bering Sea</source>
        <comment>Bering Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים ברינג</translation>
    </message>
    <message>
        <source>Drake Passage</source>
        <comment>Drake Passage</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מצר דרייק</translation>
    </message>
    <message>
        <source>Scotia Sea</source>
        <comment>Scotia Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים סקוטיה</translation>
    </message>
    <message>
        <source>Weddell Sea</source>
        <comment>Weddell Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים ודל</translation>
    </message>
    <message>
        <source>Ross Sea</source>
        <comment>Ross Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים רוס</translation>
    </message>
    <message>
        <source>Red Sea</source>
        <comment>Red Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים סוף</translation>
    </message>
    <message>
        <source>Gulf of Aden</source>
        <comment>Gulf of Aden</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ עדן</translation>
    </message>
    <message>
        <source>Persian Gulf</source>
        <comment>Persian Gulf</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>המפרץ הפרסי</translation>
    </message>
    <message>
        <source>Gulf of Oman</source>
        <comment>Gulf of Oman</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ עומאן</translation>
    </message>
    <message>
        <source>Arabian Sea</source>
        <comment>Arabian Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים הערבי</translation>
    </message>
    <message>
        <source>Laccadive Sea</source>
        <comment>Laccadive Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים לקדיב</translation>
    </message>
    <message>
        <source>Andaman Sea</source>
        <comment>Andaman Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים אנדמן</translation>
    </message>
    <message>
        <source>Bay of Bengal</source>
        <comment>Bay of Bengal</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ בנגל</translation>
    </message>
    <message>
        <source>Strait of Malacca</source>
        <comment>Strait of Malacca</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מצר מלאקה</translation>
    </message>
    <message>
        <source>Gulf of Thailand</source>
        <comment>Gulf of Thailand</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ תאילנד</translation>
    </message>
    <message>
        <source>South China Sea</source>
        <comment>South China Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים סין הדרומי</translation>
    </message>
    <message>
        <source>Sulu Sea</source>
        <comment>Sulu Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים סולו</translation>
    </message>
    <message>
        <source>Celebes Sea</source>
        <comment>Celebes Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים סולאווסי</translation>
    </message>
    <message>
        <source>Java Sea</source>
        <comment>Java Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים ג׳אווה</translation>
    </message>
    <message>
        <source>Flores Sea</source>
        <comment>Flores Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים פלורס</translation>
    </message>
    <message>
        <source>Banda Sea</source>
        <comment>Banda Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים בנדה</translation>
    </message>
    <message>
        <source>Timor Sea</source>
        <comment>Timor Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים טימור</translation>
    </message>
    <message>
        <source>Arafura Sea</source>
        <comment>Arafura Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים ארפורה</translation>
    </message>
    <message>
        <source>Gulf of Carpentaria</source>
        <comment>Gulf of Carpentaria</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ קרפנטריה</translation>
    </message>
    <message>
        <source>Philippine Sea</source>
        <comment>Philippine Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים הפיליפינים</translation>
    </message>
    <message>
        <source>East China Sea</source>
        <comment>East China Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים סין המזרחי</translation>
    </message>
    <message>
        <source>Yellow Sea</source>
        <comment>Yellow Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>הים הצהוב</translation>
    </message>
    <message>
        <source>Sea of Japan</source>
        <comment>Sea of Japan</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים יפן</translation>
    </message>
    <message>
        <source>Sea of Okhotsk</source>
        <comment>Sea of Okhotsk</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים אוחוטסק</translation>
    </message>
    <message>
        <source>Solomon Sea</source>
        <comment>Solomon Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים שלמה</translation>
    </message>
    <message>
        <source>Bismarck Sea</source>
        <comment>Bismarck Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים ביסמרק</translation>
    </message>
    <message>
        <source>Coral Sea</source>
        <comment>Coral Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים האלמוגים</translation>
    </message>
    <message>
        <source>Tasman Sea</source>
        <comment>Tasman Sea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>ים טסמן</translation>
    </message>
    <message>
        <source>Great Australian Bight</source>
        <comment>Great Australian Bight</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>המפרץ האוסטרלי הגדול</translation>
    </message>
    <message>
        <source>Mozambique Channel</source>
        <comment>Mozambique Channel</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מצר מוזמביק</translation>
    </message>
    <message>
        <source>Gulf of Guinea</source>
        <comment>Gulf of Guinea</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>מפרץ גינאה</translation>
    </message>
    <message>
        <source>Arctic Ocean</source>
        <comment>Arctic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>אוקיינוס הקרח הצפוני</translation>
    </message>
    <message>
        <source>Southern Ocean</source>
        <comment>Southern Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>האוקיינוס הדרומי</translation>
    </message>
    <message>
        <source>North Atlantic Ocean</source>
        <comment>North Atlantic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>צפון האוקיינוס האטלנטי</translation>
    </message>
    <message>
        <source>South Atlantic Ocean</source>
        <comment>South Atlantic Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>דרום האוקיינוס האטלנטי</translation>
    </message>
    <message>
        <source>Indian Ocean</source>
        <comment>Indian Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>האוקיינוס ההודי</translation>
    </message>
    <message>
        <source>North Pacific Ocean</source>
        <comment>North Pacific Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>צפון האוקיינוס השקט</translation>
    </message>
    <message>
        <source>South Pacific Ocean</source>
        <comment>South Pacific Ocean</comment>
        <extracomment>A sea, named as on maps of the language, beginning as it does at the start of a line.</extracomment>
        <translation>דרום האוקיינוס השקט</translation>
    </message>
</context>
</TS>
