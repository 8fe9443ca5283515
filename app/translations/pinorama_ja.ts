<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Pinorama</source>
        <extracomment>Title of the dialog. Pinorama stays</extracomment>
        <translation>Pinorama について</translation>
    </message>
    <message>
        <source>Shows where the picture selected in the file manager was taken.</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;: what the program does</extracomment>
        <translation>ファイルマネージャーで選択した写真の撮影場所を表示します。</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes with no warranty.</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;. The name of the licence stays</extracomment>
        <translation>GNU General Public License バージョン 3 以降に基づくフリーソフトウェアです。無保証です。</translation>
    </message>
    <message>
        <source>Made with these libraries:</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;, above a list</extracomment>
        <translation>使用しているライブラリ:</translation>
    </message>
    <message>
        <source>Places and map are made from:</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;, above a list of sources</extracomment>
        <translation>地名と地図の出典:</translation>
    </message>
</context>
<context>
    <name>pinorama::AccessibilityNotice</name>
    <message>
        <source>S&amp;witch On</source>
        <extracomment>Button of the notice about accessibility: switches it on</extracomment>
        <translation>有効にする(&amp;W)</translation>
    </message>
    <message>
        <source>Pinorama can follow the selection in %1 once accessibility is on. This is a permanent setting of your desktop; restart the file manager after switching it on.</source>
        <extracomment>A notice in the window; %1 is the name of a file manager. Accessibility as in the settings of desktops</extracomment>
        <translation>アクセシビリティを有効にすると、Pinorama は %1 の選択に追従できます。この設定はデスクトップに残り続けます。有効にした後、ファイルマネージャーを再起動してください。</translation>
    </message>
    <message>
        <source>Accessibility is on. Restart %1 or log in again; Pinorama then follows its selection.</source>
        <extracomment>A notice in the window; %1 is the name of a file manager</extracomment>
        <translation>アクセシビリティは有効です。%1 を再起動するか、ログインし直すと、Pinorama が選択に追従します。</translation>
    </message>
    <message>
        <source>Accessibility could not be switched on. The manual explains how to do it by hand.</source>
        <extracomment>A notice in the window</extracomment>
        <translation>アクセシビリティを有効にできませんでした。手動で行う方法はマニュアルにあります。</translation>
    </message>
</context>
<context>
    <name>pinorama::AppController</name>
    <message>
        <source>Files cannot be opened: the program pinorama-opener does not start.</source>
        <extracomment>The foot of the window. pinorama-opener is the name of a program and stays</extracomment>
        <translation>ファイルを開けません。プログラム pinorama-opener を起動できません。</translation>
    </message>
    <message>
        <source>Pictures cannot be read: the program pinorama-reader does not start.</source>
        <extracomment>The foot of the window. pinorama-reader is the name of a program and stays</extracomment>
        <translation>写真を読み込めません。プログラム pinorama-reader を起動できません。</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <extracomment>Reads the file again that is shown</extracomment>
        <translation>再読み込み(&amp;L)</translation>
    </message>
</context>
<context>
    <name>pinorama::ClosingWords</name>
    <message>
        <source>Pinorama keeps running when its window is closed. %1 &gt; %2 ends it.</source>
        <extracomment>The foot of the window, once: %1 is the title of a menu, %2 of the entry in it that ends the program. Pinorama stays</extracomment>
        <translation>ウィンドウを閉じても Pinorama は動作し続けます。終了するには %1 &gt; %2 を選びます。</translation>
    </message>
</context>
<context>
    <name>pinorama::CopyMenu</name>
    <message>
        <source>Copy &amp;It As</source>
        <extracomment>The menu of the forms in which a place can be copied</extracomment>
        <translation>形式を選んでコピー(&amp;I)</translation>
    </message>
    <message>
        <source>As Shown</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: the coordinate as the window shows it</extracomment>
        <translation>表示どおり</translation>
    </message>
    <message>
        <source>Decimal Degrees</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: copies &quot;-54.80190, -68.30300&quot;</extracomment>
        <translation>10 進数の度</translation>
    </message>
    <message>
        <source>Degrees and Decimal Minutes</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: copies &quot;54° 48.114&apos; S&quot;</extracomment>
        <translation>度と 10 進数の分</translation>
    </message>
    <message>
        <source>geo: Address</source>
        <extracomment>An address that begins with &quot;geo:&quot;, which map programs take</extracomment>
        <translation>geo: アドレス</translation>
    </message>
    <message>
        <source>Place in Words</source>
        <extracomment>Copies &quot;Near Ushuaia, Argentina&quot;</extracomment>
        <translation>言葉で表した場所</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <extracomment>%1 is a map service, such as OpenStreetMap</extracomment>
        <translation>%1 へのリンク</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportDialog</name>
    <message>
        <source>KML files (*.kml)</source>
        <extracomment>Kind of files in a file dialog; &quot;(*.kml)&quot; stays</extracomment>
        <translation>KML ファイル (*.kml)</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportNotice</name>
    <message>
        <source>the disk is full.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>ディスクがいっぱいです。</translation>
    </message>
    <message>
        <source>writing there is not allowed.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>そこへの書き込みは許可されていません。</translation>
    </message>
    <message>
        <source>there is no such folder.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>そのフォルダーはありません。</translation>
    </message>
    <message>
        <source>a folder has that name.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>同じ名前のフォルダーがあります。</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <extracomment>A notice in the window: %1 is the name of a file, %2 a reason, with its full stop</extracomment>
        <translation>%1 を書き込めませんでした: %2</translation>
    </message>
    <message>
        <source>Show in Fo&amp;lder</source>
        <extracomment>A button: shows the file in the file manager</extracomment>
        <translation>フォルダーで表示(&amp;L)</translation>
    </message>
    <message>
        <source>the disk does not answer.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>ディスクが応答しません。</translation>
    </message>
    <message>
        <source>%1 was saved in %2.</source>
        <extracomment>The foot of the window. %1 is the name of a file that was written, %2 the folder that it is in</extracomment>
        <translation>%1 を %2 に保存しました。</translation>
    </message>
</context>
<context>
    <name>pinorama::GlobeNotice</name>
    <message>
        <source>The globe program cannot be started.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>地球儀プログラムを起動できません。</translation>
    </message>
    <message>
        <source>The file for the globe program cannot be written.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>地球儀プログラム用のファイルを書き込めません。</translation>
    </message>
    <message>
        <source>Marble was started, but has not appeared yet.</source>
        <extracomment>The foot of the window. Marble is the name of a program</extracomment>
        <translation>Marble を起動しましたが、まだ表示されていません。</translation>
    </message>
    <message>
        <source>Marble is running, but does not answer.</source>
        <extracomment>The foot of the window. Marble is the name of a program</extracomment>
        <translation>Marble は実行中ですが、応答しません。</translation>
    </message>
</context>
<context>
    <name>pinorama::MainWindow</name>
    <message>
        <source>Preview</source>
        <extracomment>What a screen reader says of the small picture</extracomment>
        <translation>プレビュー</translation>
    </message>
    <message>
        <source>The picture has a location</source>
        <extracomment>Tool tip of the pin in the corner of the small map</extracomment>
        <translation>写真に撮影場所が記録されています</translation>
    </message>
    <message>
        <source>Opens the location in a web map</source>
        <extracomment>Tool tip of the pop-up menu of map services</extracomment>
        <translation>ウェブ地図でこの場所を開きます</translation>
    </message>
    <message>
        <source>Map Services</source>
        <extracomment>The first line of a pop-up menu of web maps</extracomment>
        <translation>地図サービス</translation>
    </message>
    <message>
        <source>Flies the globe program to the location</source>
        <extracomment>Tool tip of the button &quot;Show in Globe&quot;</extracomment>
        <translation>地球儀プログラムでこの場所へ移動します</translation>
    </message>
    <message>
        <source>Show in &amp;Globe</source>
        <extracomment>A button: shows the place in a globe program such as Marble. Keep it short</extracomment>
        <translation>地球儀で表示(&amp;G)</translation>
    </message>
    <message>
        <source>Finds all catalogued pictures taken within 2000 m</source>
        <extracomment>Tool tip of the button &quot;Find in Skallion&quot;</extracomment>
        <translation>2000&#xa0;m 以内で撮影されたカタログ内の写真をすべて検索します</translation>
    </message>
    <message>
        <source>&amp;Find in Skallion</source>
        <extracomment>A button. Skallion is a program that catalogues pictures; the name stays. Keep it short</extracomment>
        <translation>Skallion で検索(&amp;F)</translation>
    </message>
    <message>
        <source>Writes the location as a placemark file</source>
        <extracomment>Tool tip of the button &quot;Export as KML&quot;</extracomment>
        <translation>場所を目印としてファイルに保存します</translation>
    </message>
    <message>
        <source>&amp;Export as KML…</source>
        <extracomment>A button. KML is a kind of file; the name stays. Keep it short</extracomment>
        <translation>KML に書き出し(&amp;E)…</translation>
    </message>
    <message>
        <source>Name:</source>
        <extracomment>Caption before the name of the file</extracomment>
        <translation>名前:</translation>
    </message>
    <message>
        <source>Select a picture, or drop one here</source>
        <extracomment>Stands in the empty field for the name until a picture is shown</extracomment>
        <translation>写真を選択するか、ここにドロップしてください</translation>
    </message>
    <message>
        <source>Size:</source>
        <extracomment>Caption before the size of the file, such as &quot;1.2 MB&quot;</extracomment>
        <translation>サイズ:</translation>
    </message>
    <message>
        <source>Modified:</source>
        <extracomment>Caption before the time at which the file was last changed</extracomment>
        <translation>更新日時:</translation>
    </message>
    <message>
        <source>Created:</source>
        <extracomment>Caption before the time at which the file was made</extracomment>
        <translation>作成日時:</translation>
    </message>
    <message>
        <source>Coordinate:</source>
        <extracomment>Caption before the coordinate of the place</extracomment>
        <translation>座標:</translation>
    </message>
    <message>
        <source>Altitude:</source>
        <extracomment>Caption before the height above the sea, such as &quot;1,200 m&quot;</extracomment>
        <translation>高度:</translation>
    </message>
    <message>
        <source>Direction:</source>
        <extracomment>Caption before the direction that the camera looked in</extracomment>
        <translation>方向:</translation>
    </message>
    <message>
        <source>City:</source>
        <extracomment>Caption before the name of the town, which the photographer wrote into the picture</extracomment>
        <translation>市区町村:</translation>
    </message>
    <message>
        <source>State:</source>
        <extracomment>Caption before the name of the state or province, which the photographer wrote into the picture</extracomment>
        <translation>都道府県:</translation>
    </message>
    <message>
        <source>Country:</source>
        <extracomment>Caption before the name of the country, which the photographer wrote into the picture</extracomment>
        <translation>国:</translation>
    </message>
    <message>
        <source>Caption:</source>
        <extracomment>Caption before the description, which the photographer wrote into the picture</extracomment>
        <translation>説明:</translation>
    </message>
    <message>
        <source>Always shows the picture selected in the file manager</source>
        <extracomment>Tool tip of the check box &quot;Follow the selection&quot;</extracomment>
        <translation>ファイルマネージャーで選択中の写真を常に表示します</translation>
    </message>
    <message>
        <source>Follow the &amp;selection in the file manager</source>
        <extracomment>A check box at the foot of the window</extracomment>
        <translation>ファイルマネージャーの選択に追従(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Picture</source>
        <extracomment>A menu of the menu bar</extracomment>
        <translation>写真(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu of the menu bar</extracomment>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <extracomment>Menu entry: has the user choose a file</extracomment>
        <translation>開く(&amp;O)…</translation>
    </message>
    <message>
        <source>Open in &amp;Map Service</source>
        <extracomment>Menu entry: its submenu has the web maps</extracomment>
        <translation>地図サービスで開く(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <extracomment>Menu entry: the program goes on running</extracomment>
        <translation>ウィンドウを閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Quit Pinorama</source>
        <extracomment>Menu entry: ends the program. Pinorama is its name and stays</extracomment>
        <translation>Pinorama を終了(&amp;Q)</translation>
    </message>
    <message>
        <source>Pinorama &amp;Home Page</source>
        <extracomment>Menu entry: opens the page in the browser. Pinorama stays</extracomment>
        <translation>Pinorama ホームページ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Donate…</source>
        <extracomment>Menu entry: opens a page on which one can give the makers money</extracomment>
        <translation>寄付(&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;About Pinorama</source>
        <extracomment>Menu entry: opens the dialog with the version and the licence. Pinorama stays</extracomment>
        <translation>Pinorama について(&amp;A)</translation>
    </message>
    <message>
        <source>Cop&amp;y Coordinate</source>
        <extracomment>Menu entry: copies the coordinate as the window shows it</extracomment>
        <translation>座標をコピー(&amp;Y)</translation>
    </message>
    <message>
        <source>Copy as &amp;Decimal Degrees</source>
        <extracomment>Menu entry: copies the coordinate, as in &quot;-54.80190, -68.30300&quot;</extracomment>
        <translation>10 進数の度でコピー(&amp;D)</translation>
    </message>
    <message>
        <source>Pinorama &amp;Manual</source>
        <extracomment>Menu entry: opens the manual. Pinorama stays</extracomment>
        <translation>Pinorama マニュアル(&amp;M)</translation>
    </message>
    <message>
        <source>Place</source>
        <extracomment>What a screen reader says before the place in words.</extracomment>
        <translation>場所</translation>
    </message>
    <message>
        <source>A click shows more of the surroundings, or less</source>
        <extracomment>Of the small map.</extracomment>
        <translation>クリックすると、周辺をより広く、または狭く表示します</translation>
    </message>
    <message>
        <source>&amp;Read More Kinds of Files</source>
        <extracomment>Menu entry with a check mark: has pictures of more kinds and videos read, too</extracomment>
        <translation>他の種類のファイルも読み込む(&amp;R)</translation>
    </message>
    <message>
        <source>Taken:</source>
        <extracomment>The time at which the picture was taken.</extracomment>
        <translation>撮影:</translation>
    </message>
    <message>
        <source>&amp;Keep Above Other Windows</source>
        <extracomment>Menu entry with a check mark: the window stays in front of those of other programs</extracomment>
        <translation>常に手前に表示(&amp;K)</translation>
    </message>
</context>
<context>
    <name>pinorama::MoreKinds</name>
    <message>
        <source>From Exif</source>
        <extracomment>Tool tip: the part of the file that has the value. Exif is a name and stays</extracomment>
        <translation>Exif から</translation>
    </message>
    <message>
        <source>From IPTC</source>
        <extracomment>Tool tip: the part of the file that has the value. IPTC is a name and stays</extracomment>
        <translation>IPTC から</translation>
    </message>
    <message>
        <source>From XMP in the file</source>
        <extracomment>Tool tip: the part of the file that has the value. XMP is a name and stays</extracomment>
        <translation>ファイル内の XMP から</translation>
    </message>
    <message>
        <source>From the video</source>
        <extracomment>Tool tip: the value stands in the video itself</extracomment>
        <translation>動画から</translation>
    </message>
    <message>
        <source>From the XMP file beside it</source>
        <extracomment>Tool tip: the value stands in another file in the same folder. XMP is a name and stays</extracomment>
        <translation>隣の XMP ファイルから</translation>
    </message>
    <message>
        <source>Read Them</source>
        <extracomment>Button beside &quot;... pictures can be read, too&quot;: has them read from now on</extracomment>
        <translation>読み込む</translation>
    </message>
    <message>
        <source>%1 pictures can be read, too.</source>
        <extracomment>At the foot of the window; %1 is the name of a kind, such as &quot;HEIC&quot;, and no number</extracomment>
        <translation>%1 の写真も読み込めます。</translation>
    </message>
    <message>
        <source>%1 videos can be read, too.</source>
        <extracomment>At the foot of the window; %1 is the name of a kind, such as &quot;MP4&quot;, and no number</extracomment>
        <translation>%1 の動画も読み込めます。</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyModel</name>
    <message>
        <source>same place</source>
        <extracomment>Below a picture, in the place of a distance: it was taken where the other one was</extracomment>
        <translation>同じ場所</translation>
    </message>
    <message>
        <source>%1 m %2</source>
        <extracomment>Below a picture: %1 is a distance, %2 a point of the compass: 350 m NE</extracomment>
        <translation>%2 %1&#xa0;m</translation>
    </message>
    <message>
        <source>%1 km %2</source>
        <extracomment>Below a picture: %1 is a distance, %2 a point of the compass: 1.2 km NE</extracomment>
        <translation>%2 %1&#xa0;km</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyWindow</name>
    <message>
        <source>&amp;Stop</source>
        <extracomment>Button: ends the search</extracomment>
        <translation>中止(&amp;S)</translation>
    </message>
    <message>
        <source>Pictures Nearby</source>
        <extracomment>Title of the window</extracomment>
        <translation>近くの写真</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <extracomment>Context menu: opens the picture in the program for it</extracomment>
        <translation>開く(&amp;O)</translation>
    </message>
    <message>
        <source>Within %1 m of %2</source>
        <extracomment>Above the pictures that were found; %1 is a distance, %2 the name of a file</extracomment>
        <translation>%2 から %1&#xa0;m 以内</translation>
    </message>
    <message>
        <source>Searching...</source>
        <extracomment>Below the pictures, until the first is found</extracomment>
        <translation>検索中です...</translation>
    </message>
    <message>
        <source>Pictures cannot be searched for: the program pinorama-search does not start.</source>
        <extracomment>Below the pictures. pinorama-search is the name of a program and stays</extracomment>
        <translation>写真を検索できません。プログラム pinorama-search を起動できません。</translation>
    </message>
    <message>
        <source>No other picture within %1 m was found in these folders:
%2</source>
        <extracomment>In the place of the pictures; %1 is a distance, %2 a list of folders</extracomment>
        <translation>次のフォルダーには %1&#xa0;m 以内で撮影された他の写真はありません:
%2</translation>
    </message>
    <message>
        <source>Open &amp;With…</source>
        <extracomment>Context menu: has the user choose the program</extracomment>
        <translation>プログラムから開く(&amp;W)…</translation>
    </message>
    <message numerus="yes">
        <source>Searching... %Ln picture(s) found so far</source>
        <extracomment>Below the pictures; %Ln is their number</extracomment>
        <translation>
            <numerusform>検索中です... これまでに %Ln 枚の写真が見つかりました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Stopped. %Ln picture(s) found until then</source>
        <extracomment>Below the pictures, after the button &quot;Stop&quot;; %Ln is their number</extracomment>
        <translation>
            <numerusform>中止しました。それまでに %Ln 枚の写真が見つかりました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The search ended too early. %Ln picture(s) found until then</source>
        <extracomment>Below the pictures: the search failed; %Ln is their number</extracomment>
        <translation>
            <numerusform>検索が途中で終了しました。それまでに %Ln 枚の写真が見つかりました</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln picture(s) found. %1</source>
        <extracomment>Below the pictures; %Ln is a large number, %1 the text &quot;The nearest ... are shown.&quot;</extracomment>
        <translation>
            <numerusform>%Ln 枚の写真が見つかりました。%1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The nearest %Ln picture(s) are shown.</source>
        <extracomment>The sentence after &quot;... pictures found.&quot;; %Ln is a large number</extracomment>
        <translation>
            <numerusform>近い順に %Ln 枚を表示しています。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln picture(s) found</source>
        <extracomment>Below the pictures; %Ln is their number</extracomment>
        <translation>
            <numerusform>%Ln 枚の写真が見つかりました</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pinorama::Notice</name>
    <message>
        <source>&amp;Dismiss</source>
        <extracomment>A button that takes a notice in the window away</extracomment>
        <translation>閉じる(&amp;D)</translation>
    </message>
</context>
<context>
    <name>pinorama::PathIntake</name>
    <message>
        <source>Open Picture</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>写真を開く</translation>
    </message>
</context>
<context>
    <name>pinorama::PictureWords</name>
    <message>
        <source>%1 is a folder.</source>
        <extracomment>The foot of the window; so are the others. %1 is the name of the file that is shown</extracomment>
        <translation>%1 はフォルダーです。</translation>
    </message>
    <message>
        <source>%1 is not a file that can be read.</source>
        <extracomment>A pipe or a device</extracomment>
        <translation>%1 は読み込めるファイルではありません。</translation>
    </message>
    <message>
        <source>Files of this type are not read; JPEG and the raw files of cameras are.</source>
        <extracomment>The foot of the window. JPEG stays</extracomment>
        <translation>この種類のファイルは読み込みません。読み込むのは JPEG とカメラの RAW ファイルです。</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>%1 というファイルはありません。</translation>
    </message>
    <message>
        <source>You are not allowed to read %1.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>%1 を読み込む権限がありません。</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2.</source>
        <extracomment>%2 is the system&apos;s reason, such as &quot;Input/output error&quot;</extracomment>
        <translation>%1 を開けません: %2。</translation>
    </message>
    <message>
        <source>This picture does not say where it was taken.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>この写真には撮影場所が記録されていません。</translation>
    </message>
    <message>
        <source>Several files are selected; the window shows one at a time.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>複数のファイルが選択されています。このウィンドウは一度に 1 つだけ表示します。</translation>
    </message>
</context>
<context>
    <name>pinorama::PlaceActions</name>
    <message>
        <source>Needs Marble, Google Earth or another program that opens KML files</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Marble、Google Earth など、KML ファイルを開くプログラムが必要です</translation>
    </message>
    <message>
        <source>Without Skallion, pictures nearby are looked for in the folders around this one</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Skallion がない場合は、近くの写真を周りのフォルダーから探します</translation>
    </message>
    <message>
        <source>The address of %1 has no room for latitude and longitude.</source>
        <extracomment>The foot of the window. %1 is the title of a map service that the user has added</extracomment>
        <translation>%1 のアドレスには緯度と経度を入れる場所がありません。</translation>
    </message>
</context>
<context>
    <name>pinorama::ReadingNotice</name>
    <message>
        <source>Still reading %1...</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>%1 をまだ読み込んでいます...</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>%1 を読み込めませんでした。</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <extracomment>The foot of the window; %1 is the name of a file that is being read and takes too long, as when a network is gone</extracomment>
        <translation>%1 が応答しません。</translation>
    </message>
    <message>
        <source>The XMP file beside %1 could not be read.</source>
        <extracomment>The foot of the window; %1 is the name of a file. XMP is a kind of file and stays</extracomment>
        <translation>%1 の隣の XMP ファイルを読み込めませんでした。</translation>
    </message>
    <message>
        <source>The XMP file beside %1 does not answer.</source>
        <extracomment>The foot of the window; %1 is the name of a file. XMP is a kind of file and stays</extracomment>
        <translation>%1 の隣の XMP ファイルが応答しません。</translation>
    </message>
</context>
<context>
    <name>pinorama::SayingOpener</name>
    <message>
        <source>No web browser is installed.</source>
        <extracomment>The foot of the window; so are the others</extracomment>
        <translation>ウェブブラウザーがインストールされていません。</translation>
    </message>
    <message>
        <source>No program opens geo: addresses. Marble and GNOME Maps do.</source>
        <extracomment>&quot;geo:&quot; is the beginning of an address; the names are those of programs</extracomment>
        <translation>geo: アドレスを開くプログラムがありません。Marble や GNOME の「地図」で開けます。</translation>
    </message>
    <message>
        <source>No program opens KML files. Marble and Google Earth do.</source>
        <extracomment>The foot of the window. KML is a kind of file; the names of programs stay</extracomment>
        <translation>KML ファイルを開くプログラムがありません。Marble や Google Earth で開けます。</translation>
    </message>
    <message>
        <source>No program opens addresses that begin with %1:.</source>
        <extracomment>%1 is the beginning of an address, such as &quot;om&quot;</extracomment>
        <translation>%1: で始まるアドレスを開くプログラムがありません。</translation>
    </message>
    <message>
        <source>No program opens %1.</source>
        <extracomment>The foot of the window. %1 is the name of a file, such as manual.md</extracomment>
        <translation>%1 を開くプログラムがありません。</translation>
    </message>
    <message>
        <source>%1 is not a valid address.</source>
        <extracomment>The foot of the window. %1 is an address that the user has written</extracomment>
        <translation>%1 は有効なアドレスではありません。</translation>
    </message>
    <message>
        <source>%1 could not be opened. Is xdg-utils installed?</source>
        <extracomment>The foot of the window. %1 is an address; xdg-utils is the name of a package</extracomment>
        <translation>%1 を開けませんでした。xdg-utils はインストールされていますか？</translation>
    </message>
</context>
<context>
    <name>pinorama::StaleFields</name>
    <message>
        <source>from %1</source>
        <extracomment>Of a text that belongs to an earlier picture; %1 is the name of that</extracomment>
        <translation>%1 の情報</translation>
    </message>
</context>
</TS>
