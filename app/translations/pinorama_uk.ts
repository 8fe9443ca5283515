<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="uk_UA" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Pinorama</source>
        <extracomment>Title of the dialog. Pinorama stays</extracomment>
        <translation>Про Pinorama</translation>
    </message>
    <message>
        <source>Shows where the picture selected in the file manager was taken.</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;: what the program does</extracomment>
        <translation>Показує, де зроблено знімок, вибраний у менеджері файлів.</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes with no warranty.</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;. The name of the licence stays</extracomment>
        <translation>Вільне програмне забезпечення за умовами GNU General Public License версії 3 або новішої. Без жодних гарантій.</translation>
    </message>
    <message>
        <source>Made with these libraries:</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;, above a list</extracomment>
        <translation>Використано ці бібліотеки:</translation>
    </message>
    <message>
        <source>Places and map are made from:</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;, above a list of sources</extracomment>
        <translation>Джерела місць і карти:</translation>
    </message>
</context>
<context>
    <name>pinorama::AccessibilityNotice</name>
    <message>
        <source>S&amp;witch On</source>
        <extracomment>Button of the notice about accessibility: switches it on</extracomment>
        <translation>&amp;Увімкнути</translation>
    </message>
    <message>
        <source>Pinorama can follow the selection in %1 once accessibility is on. This is a permanent setting of your desktop; restart the file manager after switching it on.</source>
        <extracomment>A notice in the window; %1 is the name of a file manager. Accessibility as in the settings of desktops</extracomment>
        <translation>Pinorama зможе стежити за вибором у %1, коли буде увімкнено доступність. Це постійний параметр стільниці; після увімкнення перезапустіть менеджер файлів.</translation>
    </message>
    <message>
        <source>Accessibility is on. Restart %1 or log in again; Pinorama then follows its selection.</source>
        <extracomment>A notice in the window; %1 is the name of a file manager</extracomment>
        <translation>Доступність увімкнено. Перезапустіть %1 або увійдіть знову; після цього Pinorama стежитиме за вибором.</translation>
    </message>
    <message>
        <source>Accessibility could not be switched on. The manual explains how to do it by hand.</source>
        <extracomment>A notice in the window</extracomment>
        <translation>Не вдалося увімкнути доступність. У підручнику описано, як зробити це вручну.</translation>
    </message>
</context>
<context>
    <name>pinorama::AppController</name>
    <message>
        <source>Files cannot be opened: the program pinorama-opener does not start.</source>
        <extracomment>The foot of the window. pinorama-opener is the name of a program and stays</extracomment>
        <translation>Не вдається відкрити файли: програма pinorama-opener не запускається.</translation>
    </message>
    <message>
        <source>Pictures cannot be read: the program pinorama-reader does not start.</source>
        <extracomment>The foot of the window. pinorama-reader is the name of a program and stays</extracomment>
        <translation>Не вдається прочитати знімки: програма pinorama-reader не запускається.</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <extracomment>Reads the file again that is shown</extracomment>
        <translation>Пере&amp;читати</translation>
    </message>
</context>
<context>
    <name>pinorama::ClosingWords</name>
    <message>
        <source>Pinorama keeps running when its window is closed. %1 &gt; %2 ends it.</source>
        <extracomment>The foot of the window, once: %1 is the title of a menu, %2 of the entry in it that ends the program. Pinorama stays</extracomment>
        <translation>Pinorama працює й далі, коли вікно закрито. Щоб вийти: %1 &gt; %2.</translation>
    </message>
</context>
<context>
    <name>pinorama::CopyMenu</name>
    <message>
        <source>Copy &amp;It As</source>
        <extracomment>The menu of the forms in which a place can be copied</extracomment>
        <translation>Копіювати &amp;як</translation>
    </message>
    <message>
        <source>As Shown</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: the coordinate as the window shows it</extracomment>
        <translation>Як показано</translation>
    </message>
    <message>
        <source>Decimal Degrees</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: copies &quot;-54.80190, -68.30300&quot;</extracomment>
        <translation>Десяткові градуси</translation>
    </message>
    <message>
        <source>Degrees and Decimal Minutes</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: copies &quot;54° 48.114&apos; S&quot;</extracomment>
        <translation>Градуси й десяткові мінути</translation>
    </message>
    <message>
        <source>geo: Address</source>
        <extracomment>An address that begins with &quot;geo:&quot;, which map programs take</extracomment>
        <translation>Адреса «geo:»</translation>
    </message>
    <message>
        <source>Place in Words</source>
        <extracomment>Copies &quot;Near Ushuaia, Argentina&quot;</extracomment>
        <translation>Місце словами</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <extracomment>%1 is a map service, such as OpenStreetMap</extracomment>
        <translation>Посилання на %1</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportDialog</name>
    <message>
        <source>KML files (*.kml)</source>
        <extracomment>Kind of files in a file dialog; &quot;(*.kml)&quot; stays</extracomment>
        <translation>Файли KML (*.kml)</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportNotice</name>
    <message>
        <source>the disk is full.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>диск заповнено.</translation>
    </message>
    <message>
        <source>writing there is not allowed.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>запис туди не дозволено.</translation>
    </message>
    <message>
        <source>there is no such folder.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>такої теки немає.</translation>
    </message>
    <message>
        <source>a folder has that name.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>тека має таку назву.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <extracomment>A notice in the window: %1 is the name of a file, %2 a reason, with its full stop</extracomment>
        <translation>Не вдалося записати %1: %2</translation>
    </message>
    <message>
        <source>Show in Fo&amp;lder</source>
        <extracomment>A button: shows the file in the file manager</extracomment>
        <translation>Показати в &amp;теці</translation>
    </message>
    <message>
        <source>the disk does not answer.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>диск не відповідає.</translation>
    </message>
    <message>
        <source>%1 was saved in %2.</source>
        <extracomment>The foot of the window. %1 is the name of a file that was written, %2 the folder that it is in</extracomment>
        <translation>%1 збережено в теці %2.</translation>
    </message>
</context>
<context>
    <name>pinorama::GlobeNotice</name>
    <message>
        <source>The globe program cannot be started.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>Не вдалося запустити програму-глобус.</translation>
    </message>
    <message>
        <source>The file for the globe program cannot be written.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>Не вдається записати файл для програми-глобуса.</translation>
    </message>
    <message>
        <source>Marble was started, but has not appeared yet.</source>
        <extracomment>The foot of the window. Marble is the name of a program</extracomment>
        <translation>Marble запущено, але він досі не з’явився.</translation>
    </message>
    <message>
        <source>Marble is running, but does not answer.</source>
        <extracomment>The foot of the window. Marble is the name of a program</extracomment>
        <translation>Marble працює, але не відповідає.</translation>
    </message>
</context>
<context>
    <name>pinorama::MainWindow</name>
    <message>
        <source>Preview</source>
        <extracomment>What a screen reader says of the small picture</extracomment>
        <translation>Попередній перегляд</translation>
    </message>
    <message>
        <source>A click shows more of the surroundings, or less</source>
        <extracomment>Of the small map.</extracomment>
        <translation>Клацання показує більше або менше околиць</translation>
    </message>
    <message>
        <source>The picture has a location</source>
        <extracomment>Tool tip of the pin in the corner of the small map</extracomment>
        <translation>Знімок має дані про місце</translation>
    </message>
    <message>
        <source>Opens the location in a web map</source>
        <extracomment>Tool tip of the pop-up menu of map services</extracomment>
        <translation>Відкриває місце на вебкарті</translation>
    </message>
    <message>
        <source>Map Services</source>
        <extracomment>The first line of a pop-up menu of web maps</extracomment>
        <translation>Картографічні служби</translation>
    </message>
    <message>
        <source>Flies the globe program to the location</source>
        <extracomment>Tool tip of the button &quot;Show in Globe&quot;</extracomment>
        <translation>Показує місце у програмі-глобусі</translation>
    </message>
    <message>
        <source>Show in &amp;Globe</source>
        <extracomment>A button: shows the place in a globe program such as Marble. Keep it short</extracomment>
        <translation>Показати на &amp;глобусі</translation>
    </message>
    <message>
        <source>Finds all catalogued pictures taken within 2000 m</source>
        <extracomment>Tool tip of the button &quot;Find in Skallion&quot;</extracomment>
        <translation>Шукає всі знімки каталогу, зроблені в межах 2000 м</translation>
    </message>
    <message>
        <source>&amp;Find in Skallion</source>
        <extracomment>A button. Skallion is a program that catalogues pictures; the name stays. Keep it short</extracomment>
        <translation>З&amp;найти у Skallion</translation>
    </message>
    <message>
        <source>Writes the location as a placemark file</source>
        <extracomment>Tool tip of the button &quot;Export as KML&quot;</extracomment>
        <translation>Записує місце до файла мітки</translation>
    </message>
    <message>
        <source>&amp;Export as KML…</source>
        <extracomment>A button. KML is a kind of file; the name stays. Keep it short</extracomment>
        <translation>&amp;Експорт до KML…</translation>
    </message>
    <message>
        <source>Name:</source>
        <extracomment>Caption before the name of the file</extracomment>
        <translation>Назва:</translation>
    </message>
    <message>
        <source>Select a picture, or drop one here</source>
        <extracomment>Stands in the empty field for the name until a picture is shown</extracomment>
        <translation>Виберіть знімок або перетягніть його сюди</translation>
    </message>
    <message>
        <source>Place</source>
        <extracomment>What a screen reader says before the place in words.</extracomment>
        <translation>Місце</translation>
    </message>
    <message>
        <source>Taken:</source>
        <extracomment>The time at which the picture was taken.</extracomment>
        <translation>Знято:</translation>
    </message>
    <message>
        <source>Size:</source>
        <extracomment>Caption before the size of the file, such as &quot;1.2 MB&quot;</extracomment>
        <translation>Розмір:</translation>
    </message>
    <message>
        <source>Modified:</source>
        <extracomment>Caption before the time at which the file was last changed</extracomment>
        <translation>Змінено:</translation>
    </message>
    <message>
        <source>Created:</source>
        <extracomment>Caption before the time at which the file was made</extracomment>
        <translation>Створено:</translation>
    </message>
    <message>
        <source>Coordinate:</source>
        <extracomment>Caption before the coordinate of the place</extracomment>
        <translation>Координати:</translation>
    </message>
    <message>
        <source>Altitude:</source>
        <extracomment>Caption before the height above the sea, such as &quot;1,200 m&quot;</extracomment>
        <translation>Висота:</translation>
    </message>
    <message>
        <source>Direction:</source>
        <extracomment>Caption before the direction that the camera looked in</extracomment>
        <translation>Напрямок:</translation>
    </message>
    <message>
        <source>City:</source>
        <extracomment>Caption before the name of the town, which the photographer wrote into the picture</extracomment>
        <translation>Місто:</translation>
    </message>
    <message>
        <source>State:</source>
        <extracomment>Caption before the name of the state or province, which the photographer wrote into the picture</extracomment>
        <translation>Регіон:</translation>
    </message>
    <message>
        <source>Country:</source>
        <extracomment>Caption before the name of the country, which the photographer wrote into the picture</extracomment>
        <translation>Країна:</translation>
    </message>
    <message>
        <source>Caption:</source>
        <extracomment>Caption before the description, which the photographer wrote into the picture</extracomment>
        <translation>Опис:</translation>
    </message>
    <message>
        <source>Always shows the picture selected in the file manager</source>
        <extracomment>Tool tip of the check box &quot;Follow the selection&quot;</extracomment>
        <translation>Завжди показує знімок, вибраний у менеджері файлів</translation>
    </message>
    <message>
        <source>Follow the &amp;selection in the file manager</source>
        <extracomment>A check box at the foot of the window</extracomment>
        <translation>С&amp;тежити за вибором у менеджері файлів</translation>
    </message>
    <message>
        <source>&amp;Picture</source>
        <extracomment>A menu of the menu bar</extracomment>
        <translation>&amp;Знімок</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu of the menu bar</extracomment>
        <translation>&amp;Довідка</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <extracomment>Menu entry: has the user choose a file</extracomment>
        <translation>&amp;Відкрити…</translation>
    </message>
    <message>
        <source>Open in &amp;Map Service</source>
        <extracomment>Menu entry: its submenu has the web maps</extracomment>
        <translation>Відкрити в картографічній слу&amp;жбі</translation>
    </message>
    <message>
        <source>Cop&amp;y Coordinate</source>
        <extracomment>Menu entry: copies the coordinate as the window shows it</extracomment>
        <translation>&amp;Копіювати координати</translation>
    </message>
    <message>
        <source>Copy as &amp;Decimal Degrees</source>
        <extracomment>Menu entry: copies the coordinate, as in &quot;-54.80190, -68.30300&quot;</extracomment>
        <translation>Копіювати в &amp;десяткових градусах</translation>
    </message>
    <message>
        <source>&amp;Read More Kinds of Files</source>
        <extracomment>Menu entry with a check mark: has pictures of more kinds and videos read, too</extracomment>
        <translation>Читати &amp;більше типів файлів</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <extracomment>Menu entry: the program goes on running</extracomment>
        <translation>&amp;Закрити вікно</translation>
    </message>
    <message>
        <source>&amp;Quit Pinorama</source>
        <extracomment>Menu entry: ends the program. Pinorama is its name and stays</extracomment>
        <translation>Ви&amp;йти з Pinorama</translation>
    </message>
    <message>
        <source>Pinorama &amp;Manual</source>
        <extracomment>Menu entry: opens the manual. Pinorama stays</extracomment>
        <translation>&amp;Підручник з Pinorama</translation>
    </message>
    <message>
        <source>Pinorama &amp;Home Page</source>
        <extracomment>Menu entry: opens the page in the browser. Pinorama stays</extracomment>
        <translation>&amp;Домашня сторінка Pinorama</translation>
    </message>
    <message>
        <source>&amp;Donate…</source>
        <extracomment>Menu entry: opens a page on which one can give the makers money</extracomment>
        <translation>П&amp;ожертвувати…</translation>
    </message>
    <message>
        <source>&amp;About Pinorama</source>
        <extracomment>Menu entry: opens the dialog with the version and the licence. Pinorama stays</extracomment>
        <translation>П&amp;ро Pinorama</translation>
    </message>
    <message>
        <source>&amp;Keep Above Other Windows</source>
        <extracomment>Menu entry with a check mark: the window stays in front of those of other programs</extracomment>
        <translation>Завжди &amp;поверх інших вікон</translation>
    </message>
</context>
<context>
    <name>pinorama::MoreKinds</name>
    <message>
        <source>From Exif</source>
        <extracomment>Tool tip: the part of the file that has the value. Exif is a name and stays</extracomment>
        <translation>З Exif</translation>
    </message>
    <message>
        <source>From IPTC</source>
        <extracomment>Tool tip: the part of the file that has the value. IPTC is a name and stays</extracomment>
        <translation>З IPTC</translation>
    </message>
    <message>
        <source>From XMP in the file</source>
        <extracomment>Tool tip: the part of the file that has the value. XMP is a name and stays</extracomment>
        <translation>З XMP у файлі</translation>
    </message>
    <message>
        <source>From the video</source>
        <extracomment>Tool tip: the value stands in the video itself</extracomment>
        <translation>З відео</translation>
    </message>
    <message>
        <source>From the XMP file beside it</source>
        <extracomment>Tool tip: the value stands in another file in the same folder. XMP is a name and stays</extracomment>
        <translation>З файла XMP поруч</translation>
    </message>
    <message>
        <source>%1 pictures can be read, too.</source>
        <extracomment>At the foot of the window; %1 is the name of a kind, such as &quot;HEIC&quot;, and no number</extracomment>
        <translation>Знімки %1 теж можна читати.</translation>
    </message>
    <message>
        <source>%1 videos can be read, too.</source>
        <extracomment>At the foot of the window; %1 is the name of a kind, such as &quot;MP4&quot;, and no number</extracomment>
        <translation>Відео %1 теж можна читати.</translation>
    </message>
    <message>
        <source>Read Them</source>
        <extracomment>Button beside &quot;... pictures can be read, too&quot;: has them read from now on</extracomment>
        <translation>Читати їх</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyModel</name>
    <message>
        <source>same place</source>
        <extracomment>Below a picture, in the place of a distance: it was taken where the other one was</extracomment>
        <translation>те саме місце</translation>
    </message>
    <message>
        <source>%1 m %2</source>
        <extracomment>Below a picture: %1 is a distance, %2 a point of the compass: 350 m NE</extracomment>
        <translation>%1&#xa0;м %2</translation>
    </message>
    <message>
        <source>%1 km %2</source>
        <extracomment>Below a picture: %1 is a distance, %2 a point of the compass: 1.2 km NE</extracomment>
        <translation>%1&#xa0;км %2</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyWindow</name>
    <message>
        <source>&amp;Stop</source>
        <extracomment>Button: ends the search</extracomment>
        <translation>&amp;Зупинити</translation>
    </message>
    <message>
        <source>Pictures Nearby</source>
        <extracomment>Title of the window</extracomment>
        <translation>Знімки поблизу</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <extracomment>Context menu: opens the picture in the program for it</extracomment>
        <translation>&amp;Відкрити</translation>
    </message>
    <message>
        <source>Open &amp;With…</source>
        <extracomment>Context menu: has the user choose the program</extracomment>
        <translation>Відкрити &amp;за допомогою…</translation>
    </message>
    <message>
        <source>Within %1 m of %2</source>
        <extracomment>Above the pictures that were found; %1 is a distance, %2 the name of a file</extracomment>
        <translation>У межах %1&#xa0;м від %2</translation>
    </message>
    <message>
        <source>Searching...</source>
        <extracomment>Below the pictures, until the first is found</extracomment>
        <translation>Пошук...</translation>
    </message>
    <message>
        <source>Pictures cannot be searched for: the program pinorama-search does not start.</source>
        <extracomment>Below the pictures. pinorama-search is the name of a program and stays</extracomment>
        <translation>Не вдається шукати знімки: програма pinorama-search не запускається.</translation>
    </message>
    <message>
        <source>No other picture within %1 m was found in these folders:
%2</source>
        <extracomment>In the place of the pictures; %1 is a distance, %2 a list of folders</extracomment>
        <translation>У межах %1&#xa0;м не знайдено інших знімків у цих теках:
%2</translation>
    </message>
    <message numerus="yes">
        <source>Searching... %Ln picture(s) found so far</source>
        <extracomment>Below the pictures; %Ln is their number</extracomment>
        <translation>
            <numerusform>Пошук... Поки що знайдено %Ln знімок</numerusform>
            <numerusform>Пошук... Поки що знайдено %Ln знімки</numerusform>
            <numerusform>Пошук... Поки що знайдено %Ln знімків</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Stopped. %Ln picture(s) found until then</source>
        <extracomment>Below the pictures, after the button &quot;Stop&quot;; %Ln is their number</extracomment>
        <translation>
            <numerusform>Зупинено. До того знайдено %Ln знімок</numerusform>
            <numerusform>Зупинено. До того знайдено %Ln знімки</numerusform>
            <numerusform>Зупинено. До того знайдено %Ln знімків</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The search ended too early. %Ln picture(s) found until then</source>
        <extracomment>Below the pictures: the search failed; %Ln is their number</extracomment>
        <translation>
            <numerusform>Пошук завершився передчасно. До того знайдено %Ln знімок</numerusform>
            <numerusform>Пошук завершився передчасно. До того знайдено %Ln знімки</numerusform>
            <numerusform>Пошук завершився передчасно. До того знайдено %Ln знімків</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln picture(s) found. %1</source>
        <extracomment>Below the pictures; %Ln is a large number, %1 the text &quot;The nearest ... are shown.&quot;</extracomment>
        <translation>
            <numerusform>Знайдено %Ln знімок. %1</numerusform>
            <numerusform>Знайдено %Ln знімки. %1</numerusform>
            <numerusform>Знайдено %Ln знімків. %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The nearest %Ln picture(s) are shown.</source>
        <extracomment>The sentence after &quot;... pictures found.&quot;; %Ln is a large number</extracomment>
        <translation>
            <numerusform>Показано %Ln найближчий знімок.</numerusform>
            <numerusform>Показано %Ln найближчі знімки.</numerusform>
            <numerusform>Показано %Ln найближчих знімків.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln picture(s) found</source>
        <extracomment>Below the pictures; %Ln is their number</extracomment>
        <translation>
            <numerusform>Знайдено %Ln знімок</numerusform>
            <numerusform>Знайдено %Ln знімки</numerusform>
            <numerusform>Знайдено %Ln знімків</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pinorama::Notice</name>
    <message>
        <source>&amp;Dismiss</source>
        <extracomment>A button that takes a notice in the window away</extracomment>
        <translation>&amp;Приховати</translation>
    </message>
</context>
<context>
    <name>pinorama::PathIntake</name>
    <message>
        <source>Open Picture</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>Відкрити знімок</translation>
    </message>
</context>
<context>
    <name>pinorama::PictureWords</name>
    <message>
        <source>%1 is a folder.</source>
        <extracomment>The foot of the window; so are the others. %1 is the name of the file that is shown</extracomment>
        <translation>%1 є текою.</translation>
    </message>
    <message>
        <source>%1 is not a file that can be read.</source>
        <extracomment>A pipe or a device</extracomment>
        <translation>%1 не є файлом, який можна прочитати.</translation>
    </message>
    <message>
        <source>Files of this type are not read; JPEG and the raw files of cameras are.</source>
        <extracomment>The foot of the window. JPEG stays</extracomment>
        <translation>Файли цього типу не читаються, лише JPEG і файли RAW фотоапаратів.</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>Файла %1 немає.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>Вам не дозволено читати %1.</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2.</source>
        <extracomment>%2 is the system&apos;s reason, such as &quot;Input/output error&quot;</extracomment>
        <translation>Не вдається відкрити %1: %2.</translation>
    </message>
    <message>
        <source>This picture does not say where it was taken.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>На цьому знімку не вказано, де його зроблено.</translation>
    </message>
    <message>
        <source>Several files are selected; the window shows one at a time.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>Вибрано декілька файлів; вікно показує їх по одному.</translation>
    </message>
</context>
<context>
    <name>pinorama::PlaceActions</name>
    <message>
        <source>Needs Marble, Google Earth or another program that opens KML files</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Потребує Marble, Google Earth або іншої програми, яка відкриває файли KML</translation>
    </message>
    <message>
        <source>Without Skallion, pictures nearby are looked for in the folders around this one</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Без Skallion знімки поблизу шукаються в теках навколо цієї</translation>
    </message>
    <message>
        <source>The address of %1 has no room for latitude and longitude.</source>
        <extracomment>The foot of the window. %1 is the title of a map service that the user has added</extracomment>
        <translation>В адресі %1 немає місця для широти й довготи.</translation>
    </message>
</context>
<context>
    <name>pinorama::ReadingNotice</name>
    <message>
        <source>Still reading %1...</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>Усе ще читається %1...</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>Не вдалося прочитати %1.</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <extracomment>The foot of the window; %1 is the name of a file that is being read and takes too long, as when a network is gone</extracomment>
        <translation>%1 не відповідає.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 could not be read.</source>
        <extracomment>The foot of the window; %1 is the name of a file. XMP is a kind of file and stays</extracomment>
        <translation>Не вдалося прочитати файл XMP поруч із %1.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 does not answer.</source>
        <extracomment>The foot of the window; %1 is the name of a file. XMP is a kind of file and stays</extracomment>
        <translation>Файл XMP поруч із %1 не відповідає.</translation>
    </message>
</context>
<context>
    <name>pinorama::SayingOpener</name>
    <message>
        <source>No web browser is installed.</source>
        <extracomment>The foot of the window; so are the others</extracomment>
        <translation>Не встановлено жодного браузера.</translation>
    </message>
    <message>
        <source>No program opens geo: addresses. Marble and GNOME Maps do.</source>
        <extracomment>&quot;geo:&quot; is the beginning of an address; the names are those of programs</extracomment>
        <translation>Жодна програма не відкриває адреси geo:. Їх відкривають Marble і Карти GNOME.</translation>
    </message>
    <message>
        <source>No program opens KML files. Marble and Google Earth do.</source>
        <extracomment>The foot of the window. KML is a kind of file; the names of programs stay</extracomment>
        <translation>Жодна програма не відкриває файли KML. Їх відкривають Marble і Google Earth.</translation>
    </message>
    <message>
        <source>No program opens addresses that begin with %1:.</source>
        <extracomment>%1 is the beginning of an address, such as &quot;om&quot;</extracomment>
        <translation>Жодна програма не відкриває адреси, що починаються з %1:.</translation>
    </message>
    <message>
        <source>No program opens %1.</source>
        <extracomment>The foot of the window. %1 is the name of a file, such as manual.md</extracomment>
        <translation>Жодна програма не відкриває %1.</translation>
    </message>
    <message>
        <source>%1 is not a valid address.</source>
        <extracomment>The foot of the window. %1 is an address that the user has written</extracomment>
        <translation>%1 не є правильною адресою.</translation>
    </message>
    <message>
        <source>%1 could not be opened. Is xdg-utils installed?</source>
        <extracomment>The foot of the window. %1 is an address; xdg-utils is the name of a package</extracomment>
        <translation>Не вдалося відкрити %1. Чи встановлено xdg-utils?</translation>
    </message>
</context>
<context>
    <name>pinorama::StaleFields</name>
    <message>
        <source>from %1</source>
        <extracomment>Of a text that belongs to an earlier picture; %1 is the name of that</extracomment>
        <translation>з %1</translation>
    </message>
</context>
</TS>
