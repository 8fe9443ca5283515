<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="he_IL" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Pinorama</source>
        <extracomment>Title of the dialog. Pinorama stays</extracomment>
        <translation>על אודות Pinorama</translation>
    </message>
    <message>
        <source>Shows where the picture selected in the file manager was taken.</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;: what the program does</extracomment>
        <translation>מראה היכן צולמה התמונה שנבחרה במנהל הקבצים.</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes with no warranty.</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;. The name of the licence stays</extracomment>
        <translation>תוכנה חופשית ברישיון GNU General Public License, גרסה 3 או חדשה יותר. ללא כל אחריות.</translation>
    </message>
    <message>
        <source>Made with these libraries:</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;, above a list</extracomment>
        <translation>ספריות בשימוש:</translation>
    </message>
    <message>
        <source>Places and map are made from:</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;, above a list of sources</extracomment>
        <translation>מקורות המקומות והמפה:</translation>
    </message>
</context>
<context>
    <name>pinorama::AccessibilityNotice</name>
    <message>
        <source>S&amp;witch On</source>
        <extracomment>Button of the notice about accessibility: switches it on</extracomment>
        <translation>ה&amp;פעלה</translation>
    </message>
    <message>
        <source>Pinorama can follow the selection in %1 once accessibility is on. This is a permanent setting of your desktop; restart the file manager after switching it on.</source>
        <extracomment>A notice in the window; %1 is the name of a file manager. Accessibility as in the settings of desktops</extracomment>
        <translation>התוכנית Pinorama יכולה לעקוב אחר הבחירה ב־%1 כשהנגישות מופעלת. זוהי הגדרה קבועה של שולחן העבודה; יש להפעיל מחדש את מנהל הקבצים לאחר מכן.</translation>
    </message>
    <message>
        <source>Accessibility is on. Restart %1 or log in again; Pinorama then follows its selection.</source>
        <extracomment>A notice in the window; %1 is the name of a file manager</extracomment>
        <translation>הנגישות מופעלת. יש להפעיל מחדש את %1 או להתחבר שוב; לאחר מכן Pinorama תעקוב אחר הבחירה.</translation>
    </message>
    <message>
        <source>Accessibility could not be switched on. The manual explains how to do it by hand.</source>
        <extracomment>A notice in the window</extracomment>
        <translation>לא ניתן היה להפעיל את הנגישות. המדריך מסביר כיצד לעשות זאת ידנית.</translation>
    </message>
</context>
<context>
    <name>pinorama::AppController</name>
    <message>
        <source>Files cannot be opened: the program pinorama-opener does not start.</source>
        <extracomment>The foot of the window. pinorama-opener is the name of a program and stays</extracomment>
        <translation>לא ניתן לפתוח קבצים: התוכנית pinorama-opener אינה עולה.</translation>
    </message>
    <message>
        <source>Pictures cannot be read: the program pinorama-reader does not start.</source>
        <extracomment>The foot of the window. pinorama-reader is the name of a program and stays</extracomment>
        <translation>לא ניתן לקרוא תמונות: התוכנית pinorama-reader אינה עולה.</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <extracomment>Reads the file again that is shown</extracomment>
        <translation>&amp;טעינה מחדש</translation>
    </message>
</context>
<context>
    <name>pinorama::ClosingWords</name>
    <message>
        <source>Pinorama keeps running when its window is closed. %1 &gt; %2 ends it.</source>
        <extracomment>The foot of the window, once: %1 is the title of a menu, %2 of the entry in it that ends the program. Pinorama stays</extracomment>
        <translation>התוכנית Pinorama ממשיכה לפעול גם כשהחלון שלה סגור. כדי לסיים אותה: %1 &gt; %2.</translation>
    </message>
</context>
<context>
    <name>pinorama::CopyMenu</name>
    <message>
        <source>Copy &amp;It As</source>
        <extracomment>The menu of the forms in which a place can be copied</extracomment>
        <translation>העתקה ב&amp;תור</translation>
    </message>
    <message>
        <source>As Shown</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: the coordinate as the window shows it</extracomment>
        <translation>כפי שמוצג</translation>
    </message>
    <message>
        <source>Decimal Degrees</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: copies &quot;-54.80190, -68.30300&quot;</extracomment>
        <translation>מעלות עשרוניות</translation>
    </message>
    <message>
        <source>Degrees and Decimal Minutes</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: copies &quot;54° 48.114&apos; S&quot;</extracomment>
        <translation>מעלות ודקות עשרוניות</translation>
    </message>
    <message>
        <source>geo: Address</source>
        <extracomment>An address that begins with &quot;geo:&quot;, which map programs take</extracomment>
        <translation>כתובת geo</translation>
    </message>
    <message>
        <source>Place in Words</source>
        <extracomment>Copies &quot;Near Ushuaia, Argentina&quot;</extracomment>
        <translation>המקום במילים</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <extracomment>%1 is a map service, such as OpenStreetMap</extracomment>
        <translation>קישור אל %1</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportDialog</name>
    <message>
        <source>KML files (*.kml)</source>
        <extracomment>Kind of files in a file dialog; &quot;(*.kml)&quot; stays</extracomment>
        <translation>קובצי KML (*.kml)</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportNotice</name>
    <message>
        <source>the disk is full.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>הדיסק מלא.</translation>
    </message>
    <message>
        <source>writing there is not allowed.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>אין הרשאה לכתוב שם.</translation>
    </message>
    <message>
        <source>there is no such folder.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>אין תיקייה כזאת.</translation>
    </message>
    <message>
        <source>a folder has that name.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>יש תיקייה בשם הזה.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <extracomment>A notice in the window: %1 is the name of a file, %2 a reason, with its full stop</extracomment>
        <translation>לא ניתן היה לכתוב את %1: %2</translation>
    </message>
    <message>
        <source>Show in Fo&amp;lder</source>
        <extracomment>A button: shows the file in the file manager</extracomment>
        <translation>הצגה בתי&amp;קייה</translation>
    </message>
    <message>
        <source>the disk does not answer.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>הדיסק אינו מגיב.</translation>
    </message>
    <message>
        <source>%1 was saved in %2.</source>
        <extracomment>The foot of the window. %1 is the name of a file that was written, %2 the folder that it is in</extracomment>
        <translation>הקובץ %1 נשמר בתיקייה %2.</translation>
    </message>
</context>
<context>
    <name>pinorama::GlobeNotice</name>
    <message>
        <source>The globe program cannot be started.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>לא ניתן להפעיל את תוכנית הגלובוס.</translation>
    </message>
    <message>
        <source>The file for the globe program cannot be written.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>לא ניתן לכתוב את הקובץ עבור תוכנית הגלובוס.</translation>
    </message>
    <message>
        <source>Marble was started, but has not appeared yet.</source>
        <extracomment>The foot of the window. Marble is the name of a program</extracomment>
        <translation>התוכנית Marble הופעלה, אך עדיין לא הופיעה.</translation>
    </message>
    <message>
        <source>Marble is running, but does not answer.</source>
        <extracomment>The foot of the window. Marble is the name of a program</extracomment>
        <translation>התוכנית Marble פועלת, אך אינה מגיבה.</translation>
    </message>
</context>
<context>
    <name>pinorama::MainWindow</name>
    <message>
        <source>Preview</source>
        <extracomment>What a screen reader says of the small picture</extracomment>
        <translation>תצוגה מקדימה</translation>
    </message>
    <message>
        <source>A click shows more of the surroundings, or less</source>
        <extracomment>Of the small map.</extracomment>
        <translation>לחיצה מראה יותר או פחות מהסביבה</translation>
    </message>
    <message>
        <source>The picture has a location</source>
        <extracomment>Tool tip of the pin in the corner of the small map</extracomment>
        <translation>לתמונה יש מיקום</translation>
    </message>
    <message>
        <source>Opens the location in a web map</source>
        <extracomment>Tool tip of the pop-up menu of map services</extracomment>
        <translation>פותח את המיקום במפה מקוונת</translation>
    </message>
    <message>
        <source>Map Services</source>
        <extracomment>The first line of a pop-up menu of web maps</extracomment>
        <translation>שירותי מפות</translation>
    </message>
    <message>
        <source>Flies the globe program to the location</source>
        <extracomment>Tool tip of the button &quot;Show in Globe&quot;</extracomment>
        <translation>עובר אל המיקום בתוכנית הגלובוס</translation>
    </message>
    <message>
        <source>Show in &amp;Globe</source>
        <extracomment>A button: shows the place in a globe program such as Marble. Keep it short</extracomment>
        <translation>הצגה ב&amp;גלובוס</translation>
    </message>
    <message>
        <source>Finds all catalogued pictures taken within 2000 m</source>
        <extracomment>Tool tip of the button &quot;Find in Skallion&quot;</extracomment>
        <translation>מוצא את כל התמונות המקוטלגות שצולמו בטווח 2000 מ׳</translation>
    </message>
    <message>
        <source>&amp;Find in Skallion</source>
        <extracomment>A button. Skallion is a program that catalogues pictures; the name stays. Keep it short</extracomment>
        <translation>&amp;חיפוש ב־Skallion</translation>
    </message>
    <message>
        <source>Writes the location as a placemark file</source>
        <extracomment>Tool tip of the button &quot;Export as KML&quot;</extracomment>
        <translation>כותב את המיקום לקובץ סימון מקום</translation>
    </message>
    <message>
        <source>&amp;Export as KML…</source>
        <extracomment>A button. KML is a kind of file; the name stays. Keep it short</extracomment>
        <translation>יי&amp;צוא ל־KML…</translation>
    </message>
    <message>
        <source>Name:</source>
        <extracomment>Caption before the name of the file</extracomment>
        <translation>שם:</translation>
    </message>
    <message>
        <source>Select a picture, or drop one here</source>
        <extracomment>Stands in the empty field for the name until a picture is shown</extracomment>
        <translation>יש לבחור תמונה או לגרור אחת לכאן</translation>
    </message>
    <message>
        <source>Place</source>
        <extracomment>What a screen reader says before the place in words.</extracomment>
        <translation>מקום</translation>
    </message>
    <message>
        <source>Taken:</source>
        <extracomment>The time at which the picture was taken.</extracomment>
        <translation>צילום:</translation>
    </message>
    <message>
        <source>Size:</source>
        <extracomment>Caption before the size of the file, such as &quot;1.2 MB&quot;</extracomment>
        <translation>גודל:</translation>
    </message>
    <message>
        <source>Modified:</source>
        <extracomment>Caption before the time at which the file was last changed</extracomment>
        <translation>שינוי:</translation>
    </message>
    <message>
        <source>Created:</source>
        <extracomment>Caption before the time at which the file was made</extracomment>
        <translation>יצירה:</translation>
    </message>
    <message>
        <source>Coordinate:</source>
        <extracomment>Caption before the coordinate of the place</extracomment>
        <translation>קואורדינטה:</translation>
    </message>
    <message>
        <source>Altitude:</source>
        <extracomment>Caption before the height above the sea, such as &quot;1,200 m&quot;</extracomment>
        <translation>גובה:</translation>
    </message>
    <message>
        <source>Direction:</source>
        <extracomment>Caption before the direction that the camera looked in</extracomment>
        <translation>כיוון:</translation>
    </message>
    <message>
        <source>City:</source>
        <extracomment>Caption before the name of the town, which the photographer wrote into the picture</extracomment>
        <translation>עיר:</translation>
    </message>
    <message>
        <source>State:</source>
        <extracomment>Caption before the name of the state or province, which the photographer wrote into the picture</extracomment>
        <translation>מחוז:</translation>
    </message>
    <message>
        <source>Country:</source>
        <extracomment>Caption before the name of the country, which the photographer wrote into the picture</extracomment>
        <translation>מדינה:</translation>
    </message>
    <message>
        <source>Caption:</source>
        <extracomment>Caption before the description, which the photographer wrote into the picture</extracomment>
        <translation>תיאור:</translation>
    </message>
    <message>
        <source>Always shows the picture selected in the file manager</source>
        <extracomment>Tool tip of the check box &quot;Follow the selection&quot;</extracomment>
        <translation>מראה תמיד את התמונה שנבחרה במנהל הקבצים</translation>
    </message>
    <message>
        <source>Follow the &amp;selection in the file manager</source>
        <extracomment>A check box at the foot of the window</extracomment>
        <translation>&amp;מעקב אחר הבחירה במנהל הקבצים</translation>
    </message>
    <message>
        <source>&amp;Picture</source>
        <extracomment>A menu of the menu bar</extracomment>
        <translation>&amp;תמונה</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu of the menu bar</extracomment>
        <translation>&amp;עזרה</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <extracomment>Menu entry: has the user choose a file</extracomment>
        <translation>&amp;פתיחה…</translation>
    </message>
    <message>
        <source>Open in &amp;Map Service</source>
        <extracomment>Menu entry: its submenu has the web maps</extracomment>
        <translation>פתיחה ב&amp;שירות מפות</translation>
    </message>
    <message>
        <source>Cop&amp;y Coordinate</source>
        <extracomment>Menu entry: copies the coordinate as the window shows it</extracomment>
        <translation>העתקת &amp;קואורדינטה</translation>
    </message>
    <message>
        <source>Copy as &amp;Decimal Degrees</source>
        <extracomment>Menu entry: copies the coordinate, as in &quot;-54.80190, -68.30300&quot;</extracomment>
        <translation>העתקה במעלות &amp;עשרוניות</translation>
    </message>
    <message>
        <source>&amp;Read More Kinds of Files</source>
        <extracomment>Menu entry with a check mark: has pictures of more kinds and videos read, too</extracomment>
        <translation>קריאת &amp;סוגי קבצים נוספים</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <extracomment>Menu entry: the program goes on running</extracomment>
        <translation>סגירת הח&amp;לון</translation>
    </message>
    <message>
        <source>&amp;Quit Pinorama</source>
        <extracomment>Menu entry: ends the program. Pinorama is its name and stays</extracomment>
        <translation>&amp;יציאה מ־Pinorama</translation>
    </message>
    <message>
        <source>Pinorama &amp;Manual</source>
        <extracomment>Menu entry: opens the manual. Pinorama stays</extracomment>
        <translation>&amp;מדריך Pinorama</translation>
    </message>
    <message>
        <source>Pinorama &amp;Home Page</source>
        <extracomment>Menu entry: opens the page in the browser. Pinorama stays</extracomment>
        <translation>&amp;דף הבית של Pinorama</translation>
    </message>
    <message>
        <source>&amp;Donate…</source>
        <extracomment>Menu entry: opens a page on which one can give the makers money</extracomment>
        <translation>&amp;תרומה…</translation>
    </message>
    <message>
        <source>&amp;About Pinorama</source>
        <extracomment>Menu entry: opens the dialog with the version and the licence. Pinorama stays</extracomment>
        <translation>&amp;על אודות Pinorama</translation>
    </message>
    <message>
        <source>&amp;Keep Above Other Windows</source>
        <extracomment>Menu entry with a check mark: the window stays in front of those of other programs</extracomment>
        <translation>תמיד &amp;מעל חלונות אחרים</translation>
    </message>
</context>
<context>
    <name>pinorama::MoreKinds</name>
    <message>
        <source>From Exif</source>
        <extracomment>Tool tip: the part of the file that has the value. Exif is a name and stays</extracomment>
        <translation>מתוך Exif</translation>
    </message>
    <message>
        <source>From IPTC</source>
        <extracomment>Tool tip: the part of the file that has the value. IPTC is a name and stays</extracomment>
        <translation>מתוך IPTC</translation>
    </message>
    <message>
        <source>From XMP in the file</source>
        <extracomment>Tool tip: the part of the file that has the value. XMP is a name and stays</extracomment>
        <translation>מתוך XMP שבקובץ</translation>
    </message>
    <message>
        <source>From the video</source>
        <extracomment>Tool tip: the value stands in the video itself</extracomment>
        <translation>מתוך הסרטון</translation>
    </message>
    <message>
        <source>From the XMP file beside it</source>
        <extracomment>Tool tip: the value stands in another file in the same folder. XMP is a name and stays</extracomment>
        <translation>מתוך קובץ ה־XMP שלצדו</translation>
    </message>
    <message>
        <source>%1 pictures can be read, too.</source>
        <extracomment>At the foot of the window; %1 is the name of a kind, such as &quot;HEIC&quot;, and no number</extracomment>
        <translation>ניתן לקרוא גם תמונות %1.</translation>
    </message>
    <message>
        <source>%1 videos can be read, too.</source>
        <extracomment>At the foot of the window; %1 is the name of a kind, such as &quot;MP4&quot;, and no number</extracomment>
        <translation>ניתן לקרוא גם סרטוני %1.</translation>
    </message>
    <message>
        <source>Read Them</source>
        <extracomment>Button beside &quot;... pictures can be read, too&quot;: has them read from now on</extracomment>
        <translation>קריאה מעתה</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyModel</name>
    <message>
        <source>same place</source>
        <extracomment>Below a picture, in the place of a distance: it was taken where the other one was</extracomment>
        <translation>אותו מקום</translation>
    </message>
    <message>
        <source>%1 m %2</source>
        <extracomment>Below a picture: %1 is a distance, %2 a point of the compass: 350 m NE</extracomment>
        <translation>%1&#xa0;מ׳ %2</translation>
    </message>
    <message>
        <source>%1 km %2</source>
        <extracomment>Below a picture: %1 is a distance, %2 a point of the compass: 1.2 km NE</extracomment>
        <translation>%1&#xa0;ק״מ %2</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyWindow</name>
    <message>
        <source>&amp;Stop</source>
        <extracomment>Button: ends the search</extracomment>
        <translation>&amp;עצירה</translation>
    </message>
    <message>
        <source>Pictures Nearby</source>
        <extracomment>Title of the window</extracomment>
        <translation>תמונות בסביבה</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <extracomment>Context menu: opens the picture in the program for it</extracomment>
        <translation>&amp;פתיחה</translation>
    </message>
    <message>
        <source>Open &amp;With…</source>
        <extracomment>Context menu: has the user choose the program</extracomment>
        <translation>פתיחה &amp;באמצעות…</translation>
    </message>
    <message>
        <source>Within %1 m of %2</source>
        <extracomment>Above the pictures that were found; %1 is a distance, %2 the name of a file</extracomment>
        <translation>בטווח %1&#xa0;מ׳ מ־%2</translation>
    </message>
    <message>
        <source>Searching...</source>
        <extracomment>Below the pictures, until the first is found</extracomment>
        <translation>מתבצע חיפוש...</translation>
    </message>
    <message>
        <source>Pictures cannot be searched for: the program pinorama-search does not start.</source>
        <extracomment>Below the pictures. pinorama-search is the name of a program and stays</extracomment>
        <translation>לא ניתן לחפש תמונות: התוכנית pinorama-search אינה עולה.</translation>
    </message>
    <message>
        <source>No other picture within %1 m was found in these folders:
%2</source>
        <extracomment>In the place of the pictures; %1 is a distance, %2 a list of folders</extracomment>
        <translation>בטווח %1&#xa0;מ׳ לא נמצאה תמונה אחרת בתיקיות האלה:
%2</translation>
    </message>
    <message numerus="yes">
        <source>Searching... %Ln picture(s) found so far</source>
        <extracomment>Below the pictures; %Ln is their number</extracomment>
        <translation>
            <numerusform>מתבצע חיפוש... עד כה נמצאה תמונה אחת</numerusform>
            <numerusform>מתבצע חיפוש... עד כה נמצאו %Ln תמונות</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Stopped. %Ln picture(s) found until then</source>
        <extracomment>Below the pictures, after the button &quot;Stop&quot;; %Ln is their number</extracomment>
        <translation>
            <numerusform>החיפוש נעצר. עד אז נמצאה תמונה אחת</numerusform>
            <numerusform>החיפוש נעצר. עד אז נמצאו %Ln תמונות</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The search ended too early. %Ln picture(s) found until then</source>
        <extracomment>Below the pictures: the search failed; %Ln is their number</extracomment>
        <translation>
            <numerusform>החיפוש הסתיים מוקדם מדי. עד אז נמצאה תמונה אחת</numerusform>
            <numerusform>החיפוש הסתיים מוקדם מדי. עד אז נמצאו %Ln תמונות</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln picture(s) found. %1</source>
        <extracomment>Below the pictures; %Ln is a large number, %1 the text &quot;The nearest ... are shown.&quot;</extracomment>
        <translation>
            <numerusform>נמצאה תמונה אחת. %1</numerusform>
            <numerusform>נמצאו %Ln תמונות. %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The nearest %Ln picture(s) are shown.</source>
        <extracomment>The sentence after &quot;... pictures found.&quot;; %Ln is a large number</extracomment>
        <translation>
            <numerusform>מוצגת התמונה הקרובה ביותר.</numerusform>
            <numerusform>מוצגות %Ln התמונות הקרובות ביותר.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln picture(s) found</source>
        <extracomment>Below the pictures; %Ln is their number</extracomment>
        <translation>
            <numerusform>נמצאה תמונה אחת</numerusform>
            <numerusform>נמצאו %Ln תמונות</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pinorama::Notice</name>
    <message>
        <source>&amp;Dismiss</source>
        <extracomment>A button that takes a notice in the window away</extracomment>
        <translation>ה&amp;סתרה</translation>
    </message>
</context>
<context>
    <name>pinorama::PathIntake</name>
    <message>
        <source>Open Picture</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>פתיחת תמונה</translation>
    </message>
</context>
<context>
    <name>pinorama::PictureWords</name>
    <message>
        <source>%1 is a folder.</source>
        <extracomment>The foot of the window; so are the others. %1 is the name of the file that is shown</extracomment>
        <translation>הפריט %1 הוא תיקייה.</translation>
    </message>
    <message>
        <source>%1 is not a file that can be read.</source>
        <extracomment>A pipe or a device</extracomment>
        <translation>הפריט %1 אינו קובץ שניתן לקרוא.</translation>
    </message>
    <message>
        <source>Files of this type are not read; JPEG and the raw files of cameras are.</source>
        <extracomment>The foot of the window. JPEG stays</extracomment>
        <translation>קבצים מסוג זה אינם נקראים, רק JPEG וקובצי RAW של מצלמות.</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>אין קובץ %1.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>אין לך הרשאה לקרוא את %1.</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2.</source>
        <extracomment>%2 is the system&apos;s reason, such as &quot;Input/output error&quot;</extracomment>
        <translation>לא ניתן לפתוח את %1: %2.</translation>
    </message>
    <message>
        <source>This picture does not say where it was taken.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>התמונה הזאת אינה מציינת היכן צולמה.</translation>
    </message>
    <message>
        <source>Several files are selected; the window shows one at a time.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>נבחרו כמה קבצים; החלון מציג אחד בכל פעם.</translation>
    </message>
</context>
<context>
    <name>pinorama::PlaceActions</name>
    <message>
        <source>Needs Marble, Google Earth or another program that opens KML files</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>דורש את Marble, את Google Earth או תוכנית אחרת שפותחת קובצי KML</translation>
    </message>
    <message>
        <source>Without Skallion, pictures nearby are looked for in the folders around this one</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>בלי Skallion, החיפוש אחר תמונות בסביבה נעשה בתיקיות הסמוכות</translation>
    </message>
    <message>
        <source>The address of %1 has no room for latitude and longitude.</source>
        <extracomment>The foot of the window. %1 is the title of a map service that the user has added</extracomment>
        <translation>בכתובת של %1 אין מקום לקו רוחב ולקו אורך.</translation>
    </message>
</context>
<context>
    <name>pinorama::ReadingNotice</name>
    <message>
        <source>Still reading %1...</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>הקריאה של %1 עדיין נמשכת...</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>לא ניתן היה לקרוא את %1.</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <extracomment>The foot of the window; %1 is the name of a file that is being read and takes too long, as when a network is gone</extracomment>
        <translation>הקובץ %1 אינו מגיב.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 could not be read.</source>
        <extracomment>The foot of the window; %1 is the name of a file. XMP is a kind of file and stays</extracomment>
        <translation>לא ניתן היה לקרוא את קובץ ה־XMP שליד %1.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 does not answer.</source>
        <extracomment>The foot of the window; %1 is the name of a file. XMP is a kind of file and stays</extracomment>
        <translation>קובץ ה־XMP שליד %1 אינו מגיב.</translation>
    </message>
</context>
<context>
    <name>pinorama::SayingOpener</name>
    <message>
        <source>No web browser is installed.</source>
        <extracomment>The foot of the window; so are the others</extracomment>
        <translation>לא מותקן דפדפן.</translation>
    </message>
    <message>
        <source>No program opens geo: addresses. Marble and GNOME Maps do.</source>
        <extracomment>&quot;geo:&quot; is the beginning of an address; the names are those of programs</extracomment>
        <translation>אין תוכנית שפותחת כתובות geo. התוכניות Marble ומפות GNOME פותחות אותן.</translation>
    </message>
    <message>
        <source>No program opens KML files. Marble and Google Earth do.</source>
        <extracomment>The foot of the window. KML is a kind of file; the names of programs stay</extracomment>
        <translation>אין תוכנית שפותחת קובצי KML. התוכניות Marble ו־Google Earth פותחות אותם.</translation>
    </message>
    <message>
        <source>No program opens addresses that begin with %1:.</source>
        <extracomment>%1 is the beginning of an address, such as &quot;om&quot;</extracomment>
        <translation>אין תוכנית שפותחת כתובות שמתחילות ב־⁦%1:⁩.</translation>
    </message>
    <message>
        <source>No program opens %1.</source>
        <extracomment>The foot of the window. %1 is the name of a file, such as manual.md</extracomment>
        <translation>אין תוכנית שפותחת את %1.</translation>
    </message>
    <message>
        <source>%1 is not a valid address.</source>
        <extracomment>The foot of the window. %1 is an address that the user has written</extracomment>
        <translation>הכתובת %1 אינה תקינה.</translation>
    </message>
    <message>
        <source>%1 could not be opened. Is xdg-utils installed?</source>
        <extracomment>The foot of the window. %1 is an address; xdg-utils is the name of a package</extracomment>
        <translation>לא ניתן היה לפתוח את %1. האם החבילה xdg-utils מותקנת?</translation>
    </message>
</context>
<context>
    <name>pinorama::StaleFields</name>
    <message>
        <source>from %1</source>
        <extracomment>Of a text that belongs to an earlier picture; %1 is the name of that</extracomment>
        <translation>מתוך %1</translation>
    </message>
</context>
</TS>
