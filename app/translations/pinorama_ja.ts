<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Pinorama</source>
        <translation>Pinorama について</translation>
    </message>
    <message>
        <source>Shows where the picture selected in the file manager was taken.</source>
        <translation>ファイルマネージャーで選択した写真の撮影場所を表示します。</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes with no warranty.</source>
        <translation>GNU General Public License バージョン 3 以降に基づくフリーソフトウェアです。無保証です。</translation>
    </message>
    <message>
        <source>Made with these libraries:</source>
        <translation>使用しているライブラリ:</translation>
    </message>
    <message>
        <source>Places and map are made from:</source>
        <translation>地名と地図の出典:</translation>
    </message>
</context>
<context>
    <name>pinorama::AccessibilityNotice</name>
    <message>
        <source>S&amp;witch On</source>
        <translation>有効にする(&amp;W)</translation>
    </message>
    <message>
        <source>Pinorama can follow the selection in %1 once accessibility is on. This is a permanent setting of your desktop; restart the file manager after switching it on.</source>
        <translation>アクセシビリティを有効にすると、%1 の選択に追従できます。この設定はデスクトップに保存されます。有効にした後、ファイルマネージャーを再起動してください。</translation>
    </message>
    <message>
        <source>Accessibility is on. Restart %1 or log in again; Pinorama then follows its selection.</source>
        <translation>アクセシビリティを有効にしました。%1 を再起動するか、ログインし直すと、選択に追従します。</translation>
    </message>
    <message>
        <source>Accessibility could not be switched on. The manual explains how to do it by hand.</source>
        <translation>アクセシビリティを有効にできませんでした。手動で行う方法はマニュアルにあります。</translation>
    </message>
</context>
<context>
    <name>pinorama::AppController</name>
    <message>
        <source>Files cannot be opened: the program pinorama-opener does not start.</source>
        <translation>ファイルを開けません。プログラム pinorama-opener を起動できません。</translation>
    </message>
    <message>
        <source>Pictures cannot be read: the program pinorama-reader does not start.</source>
        <translation>写真を読み込めません。プログラム pinorama-reader を起動できません。</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <extracomment>Reads the file again that is shown</extracomment>
        <translation>再読み込み(&amp;L)</translation>
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
        <translation>表示どおり</translation>
    </message>
    <message>
        <source>Decimal Degrees</source>
        <translation>10 進数の度</translation>
    </message>
    <message>
        <source>Degrees and Decimal Minutes</source>
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
        <translation>KML ファイル (*.kml)</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportNotice</name>
    <message>
        <source>the disk is full.</source>
        <translation>ディスクがいっぱいです。</translation>
    </message>
    <message>
        <source>writing there is not allowed.</source>
        <translation>そこへの書き込みは許可されていません。</translation>
    </message>
    <message>
        <source>there is no such folder.</source>
        <translation>そのフォルダーはありません。</translation>
    </message>
    <message>
        <source>a folder has that name.</source>
        <translation>同じ名前のフォルダーがあります。</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 を書き込めませんでした: %2</translation>
    </message>
    <message>
        <source>%1 was saved.</source>
        <extracomment>%1 is the name of a file that was written</extracomment>
        <translation>%1 を保存しました。</translation>
    </message>
    <message>
        <source>Show in Fo&amp;lder</source>
        <extracomment>A button: shows the file in the file manager</extracomment>
        <translation>フォルダーで表示(&amp;L)</translation>
    </message>
    <message>
        <source>the disk does not answer.</source>
        <translation>ディスクが応答しません。</translation>
    </message>
</context>
<context>
    <name>pinorama::MainWindow</name>
    <message>
        <source>Preview</source>
        <translation>プレビュー</translation>
    </message>
    <message>
        <source>The picture has a location</source>
        <translation>写真に撮影場所が記録されています</translation>
    </message>
    <message>
        <source>Opens the location in a web map</source>
        <translation>ウェブ地図でこの場所を開きます</translation>
    </message>
    <message>
        <source>Map Services</source>
        <translation>地図サービス</translation>
    </message>
    <message>
        <source>Flies the globe program to the location</source>
        <translation>地球儀ソフトでこの場所へ移動します</translation>
    </message>
    <message>
        <source>Show in &amp;Globe</source>
        <translation>地球儀で表示(&amp;G)</translation>
    </message>
    <message>
        <source>Finds all catalogued pictures taken within 2000 m</source>
        <translation>2000&#xa0;m 以内で撮影されたカタログ内の写真をすべて検索します</translation>
    </message>
    <message>
        <source>&amp;Find in Skallion</source>
        <translation>Skallion で検索(&amp;F)</translation>
    </message>
    <message>
        <source>Writes the location as a placemark file</source>
        <translation>場所を目印としてファイルに保存します</translation>
    </message>
    <message>
        <source>&amp;Export as KML…</source>
        <translation>KML に書き出し(&amp;E)…</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>名前:</translation>
    </message>
    <message>
        <source>Select a picture, or drop one here</source>
        <translation>写真を選択するか、ここにドロップしてください</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>サイズ:</translation>
    </message>
    <message>
        <source>Modified:</source>
        <translation>更新日時:</translation>
    </message>
    <message>
        <source>Created:</source>
        <translation>作成日時:</translation>
    </message>
    <message>
        <source>Coordinate:</source>
        <translation>座標:</translation>
    </message>
    <message>
        <source>Altitude:</source>
        <translation>高度:</translation>
    </message>
    <message>
        <source>Direction:</source>
        <translation>方向:</translation>
    </message>
    <message>
        <source>City:</source>
        <translation>市区町村:</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>都道府県:</translation>
    </message>
    <message>
        <source>Country:</source>
        <translation>国:</translation>
    </message>
    <message>
        <source>Caption:</source>
        <translation>説明:</translation>
    </message>
    <message>
        <source>Always shows the picture selected in the file manager</source>
        <translation>ファイルマネージャーで選択中の写真を常に表示します</translation>
    </message>
    <message>
        <source>Follow the &amp;selection in the file manager</source>
        <translation>ファイルマネージャーの選択に追従(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Picture</source>
        <translation>写真(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>開く(&amp;O)…</translation>
    </message>
    <message>
        <source>Open in &amp;Map Service</source>
        <translation>地図サービスで開く(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>ウィンドウを閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Quit Pinorama</source>
        <translation>Pinorama を終了(&amp;Q)</translation>
    </message>
    <message>
        <source>Pinorama &amp;Home Page</source>
        <translation>Pinorama ホームページ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Donate…</source>
        <translation>寄付(&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;About Pinorama</source>
        <translation>Pinorama について(&amp;A)</translation>
    </message>
    <message>
        <source>Cop&amp;y Coordinate</source>
        <translation>座標をコピー(&amp;Y)</translation>
    </message>
    <message>
        <source>Copy as &amp;Decimal Degrees</source>
        <translation>10 進数の度でコピー(&amp;D)</translation>
    </message>
    <message>
        <source>Pinorama &amp;Manual</source>
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
        <translation>クリックすると表示範囲が変わります</translation>
    </message>
    <message>
        <source>&amp;Read More Kinds of Files</source>
        <translation>ほかの種類のファイルも読み取る(&amp;R)</translation>
    </message>
    <message>
        <source>Taken:</source>
        <extracomment>The time at which the picture was taken.</extracomment>
        <translation>撮影:</translation>
    </message>
</context>
<context>
    <name>pinorama::Notice</name>
    <message>
        <source>&amp;Dismiss</source>
        <translation>閉じる(&amp;D)</translation>
    </message>
</context>
<context>
    <name>pinorama::PathIntake</name>
    <message>
        <source>Open Picture</source>
        <translation>写真を開く</translation>
    </message>
</context>
<context>
    <name>pinorama::ReadingNotice</name>
    <message>
        <source>Still reading %1...</source>
        <translation>%1 を読み込み中です...</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>%1 を読み込めませんでした。</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <translation>%1 が応答しません。</translation>
    </message>
    <message>
        <source>The XMP file beside %1 could not be read.</source>
        <translation>%1 の隣の XMP ファイルを読み込めませんでした。</translation>
    </message>
    <message>
        <source>The XMP file beside %1 does not answer.</source>
        <translation>%1 の隣の XMP ファイルが応答しません。</translation>
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
        <source>%1 is no file that can be read.</source>
        <extracomment>A pipe or a device</extracomment>
        <translation>%1 は読み込めるファイルではありません。</translation>
    </message>
    <message>
        <source>Files of this type are not read: JPEG and the raw files of cameras are.</source>
        <translation>この種類のファイルは読み込みません。読み込むのは JPEG とカメラの RAW ファイルです。</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <translation>%1 というファイルはありません。</translation>
    </message>
    <message>
        <source>You are not allowed to read %1.</source>
        <translation>%1 を読み込む権限がありません。</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2.</source>
        <extracomment>%2 is the system&apos;s reason, such as &quot;Input/output error&quot;</extracomment>
        <translation>%1 を開けません: %2。</translation>
    </message>
    <message>
        <source>This picture does not say where it was taken.</source>
        <translation>この写真には撮影場所が記録されていません。</translation>
    </message>
    <message>
        <source>Several files are selected; the window shows one at a time.</source>
        <translation>複数のファイルが選択されています。このウィンドウは一度に 1 つだけ表示します。</translation>
    </message>
</context>
<context>
    <name>pinorama::MoreKinds</name>
    <message>
        <source>From Exif</source>
        <translation>Exif から</translation>
    </message>
    <message>
        <source>From IPTC</source>
        <translation>IPTC から</translation>
    </message>
    <message>
        <source>From XMP in the file</source>
        <translation>ファイル内の XMP から</translation>
    </message>
    <message>
        <source>From the video</source>
        <translation>動画から</translation>
    </message>
    <message>
        <source>From the XMP file beside it</source>
        <translation>隣の XMP ファイルから</translation>
    </message>
    <message>
        <source>Read Them</source>
        <translation>読み取る</translation>
    </message>
    <message>
        <source>%1 pictures can be read, too.</source>
        <translation>%1 の写真も読み取れます。</translation>
    </message>
    <message>
        <source>%1 videos can be read, too.</source>
        <translation>%1 の動画も読み取れます。</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyModel</name>
    <message>
        <source>same place</source>
        <translation>同じ場所</translation>
    </message>
    <message>
        <source>%1 m %2</source>
        <extracomment>%1 is a distance, %2 a point of the compass: 350 m NE</extracomment>
        <translation>%2 %1&#xa0;m</translation>
    </message>
    <message>
        <source>%1 km %2</source>
        <extracomment>%1 is a distance, %2 a point of the compass: 1.2 km NE</extracomment>
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
        <extracomment>Above the pictures that were found; %2 is the name of a file</extracomment>
        <translation>%2 から %1&#xa0;m 以内</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>検索中です...</translation>
    </message>
    <message>
        <source>Searching... Pictures found so far: %1</source>
        <translation>検索中です... これまでに見つかった写真: %1</translation>
    </message>
    <message>
        <source>Stopped. Pictures found until then: %1</source>
        <translation>中止しました。それまでに見つかった写真: %1</translation>
    </message>
    <message>
        <source>The search ended too early. Pictures found until then: %1</source>
        <translation>検索が途中で終了しました。それまでに見つかった写真: %1</translation>
    </message>
    <message>
        <source>Pictures cannot be searched: the program pinorama-search does not start.</source>
        <translation>写真を検索できません。プログラム pinorama-search を起動できません。</translation>
    </message>
    <message>
        <source>Pictures found: %1. The nearest %2 are shown.</source>
        <translation>見つかった写真: %1。近い順に %2 枚を表示しています。</translation>
    </message>
    <message>
        <source>Pictures found: %1</source>
        <translation>見つかった写真: %1</translation>
    </message>
    <message>
        <source>No other picture within %1 m was found in these folders:
%2</source>
        <extracomment>%2 is a list of folders</extracomment>
        <translation>次のフォルダーには %1&#xa0;m 以内で撮影された他の写真はありません:
%2</translation>
    </message>
    <message>
        <source>Open &amp;With...</source>
        <extracomment>Context menu: has the user choose the program</extracomment>
        <translation>プログラムから開く(&amp;W)...</translation>
    </message>
</context>
<context>
    <name>pinorama::PlaceActions</name>
    <message>
        <source>The globe program cannot be started.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>地球儀ソフトを起動できません。</translation>
    </message>
    <message>
        <source>Needs Marble, Google Earth or another program that opens KML files</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Marble、Google Earth など、KML ファイルを開くプログラムが必要です</translation>
    </message>
    <message>
        <source>Without Skallion, pictures nearby are looked for in the folders around this one</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Skallion がない場合は、近くで撮影された画像を周りのフォルダーから探します</translation>
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
        <translation>geo: アドレスを開くプログラムがありません。Marble や GNOME マップで開けます。</translation>
    </message>
    <message>
        <source>No program opens KML files. Marble and Google Earth do.</source>
        <translation>KML ファイルを開くプログラムがありません。Marble や Google Earth で開けます。</translation>
    </message>
    <message>
        <source>No program opens addresses that begin with %1:.</source>
        <extracomment>%1 is the beginning of an address, such as &quot;om&quot;</extracomment>
        <translation>%1: で始まるアドレスを開くプログラムがありません。</translation>
    </message>
</context>
<context>
    <name>pinorama::StaleFields</name>
    <message>
        <source>from %1</source>
        <extracomment>Of a text that belongs to an earlier picture; %1 is the name of that</extracomment>
        <translation>%1 より</translation>
    </message>
</context>
</TS>
