<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Pinorama</source>
        <extracomment>Title of the dialog. Pinorama stays</extracomment>
        <translation>关于 Pinorama</translation>
    </message>
    <message>
        <source>Shows where the picture selected in the file manager was taken.</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;: what the program does</extracomment>
        <translation>显示在文件管理器中所选照片的拍摄地点。</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes with no warranty.</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;. The name of the licence stays</extracomment>
        <translation>基于 GNU 通用公共许可证第 3 版或更新版本的自由软件，不提供任何担保。</translation>
    </message>
    <message>
        <source>Made with these libraries:</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;, above a list</extracomment>
        <translation>使用的库：</translation>
    </message>
    <message>
        <source>Places and map are made from:</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;, above a list of sources</extracomment>
        <translation>地名和地图的来源：</translation>
    </message>
</context>
<context>
    <name>pinorama::AccessibilityNotice</name>
    <message>
        <source>S&amp;witch On</source>
        <extracomment>Button of the notice about accessibility: switches it on</extracomment>
        <translation>启用(&amp;W)</translation>
    </message>
    <message>
        <source>Pinorama can follow the selection in %1 once accessibility is on. This is a permanent setting of your desktop; restart the file manager after switching it on.</source>
        <extracomment>A notice in the window; %1 is the name of a file manager. Accessibility as in the settings of desktops</extracomment>
        <translation>启用辅助功能后，即可跟随 %1 中选中的文件。此项桌面设置会一直保留；启用后请重新启动文件管理器。</translation>
    </message>
    <message>
        <source>Accessibility is on. Restart %1 or log in again; Pinorama then follows its selection.</source>
        <extracomment>A notice in the window; %1 is the name of a file manager</extracomment>
        <translation>辅助功能已启用。重新启动 %1 或重新登录后，即可跟随其中选中的文件。</translation>
    </message>
    <message>
        <source>Accessibility could not be switched on. The manual explains how to do it by hand.</source>
        <extracomment>A notice in the window</extracomment>
        <translation>无法启用辅助功能。手册说明了如何手动启用。</translation>
    </message>
</context>
<context>
    <name>pinorama::AppController</name>
    <message>
        <source>Files cannot be opened: the program pinorama-opener does not start.</source>
        <extracomment>The foot of the window. pinorama-opener is the name of a program and stays</extracomment>
        <translation>无法打开文件：程序 pinorama-opener 无法启动。</translation>
    </message>
    <message>
        <source>Pictures cannot be read: the program pinorama-reader does not start.</source>
        <extracomment>The foot of the window. pinorama-reader is the name of a program and stays</extracomment>
        <translation>无法读取照片：程序 pinorama-reader 无法启动。</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <extracomment>Reads the file again that is shown</extracomment>
        <translation>重新读取(&amp;L)</translation>
    </message>
</context>
<context>
    <name>pinorama::ClosingWords</name>
    <message>
        <source>Pinorama keeps running when its window is closed. %1 &gt; %2 ends it.</source>
        <extracomment>The foot of the window, once: %1 is the title of a menu, %2 of the entry in it that ends the program. Pinorama stays</extracomment>
        <translation>关闭窗口后 Pinorama 会继续运行。要退出，请选择 %1 &gt; %2。</translation>
    </message>
</context>
<context>
    <name>pinorama::CopyMenu</name>
    <message>
        <source>Copy &amp;It As</source>
        <extracomment>The menu of the forms in which a place can be copied</extracomment>
        <translation>复制为(&amp;I)</translation>
    </message>
    <message>
        <source>As Shown</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: the coordinate as the window shows it</extracomment>
        <translation>按显示的形式</translation>
    </message>
    <message>
        <source>Decimal Degrees</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: copies &quot;-54.80190, -68.30300&quot;</extracomment>
        <translation>十进制度数</translation>
    </message>
    <message>
        <source>Degrees and Decimal Minutes</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: copies &quot;54° 48.114&apos; S&quot;</extracomment>
        <translation>度和十进制分</translation>
    </message>
    <message>
        <source>geo: Address</source>
        <extracomment>An address that begins with &quot;geo:&quot;, which map programs take</extracomment>
        <translation>geo: 地址</translation>
    </message>
    <message>
        <source>Place in Words</source>
        <extracomment>Copies &quot;Near Ushuaia, Argentina&quot;</extracomment>
        <translation>文字描述的地点</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <extracomment>%1 is a map service, such as OpenStreetMap</extracomment>
        <translation>%1 链接</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportDialog</name>
    <message>
        <source>KML files (*.kml)</source>
        <extracomment>Kind of files in a file dialog; &quot;(*.kml)&quot; stays</extracomment>
        <translation>KML 文件 (*.kml)</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportNotice</name>
    <message>
        <source>the disk is full.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>磁盘已满。</translation>
    </message>
    <message>
        <source>writing there is not allowed.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>不允许写入该位置。</translation>
    </message>
    <message>
        <source>there is no such folder.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>该文件夹不存在。</translation>
    </message>
    <message>
        <source>a folder has that name.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>已有同名的文件夹。</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <extracomment>A notice in the window: %1 is the name of a file, %2 a reason, with its full stop</extracomment>
        <translation>无法写入 %1：%2</translation>
    </message>
    <message>
        <source>Show in Fo&amp;lder</source>
        <extracomment>A button: shows the file in the file manager</extracomment>
        <translation>在文件夹中显示(&amp;L)</translation>
    </message>
    <message>
        <source>the disk does not answer.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>磁盘没有响应。</translation>
    </message>
    <message>
        <source>%1 was saved in %2.</source>
        <extracomment>The foot of the window. %1 is the name of a file that was written, %2 the folder that it is in</extracomment>
        <translation>已将 %1 保存到 %2。</translation>
    </message>
</context>
<context>
    <name>pinorama::GlobeNotice</name>
    <message>
        <source>The globe program cannot be started.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>无法启动地球仪程序。</translation>
    </message>
    <message>
        <source>The file for the globe program cannot be written.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>无法写入供地球仪程序使用的文件。</translation>
    </message>
    <message>
        <source>Marble was started, but has not appeared yet.</source>
        <extracomment>The foot of the window. Marble is the name of a program</extracomment>
        <translation>Marble 已启动，但目前尚未出现。</translation>
    </message>
    <message>
        <source>Marble is running, but does not answer.</source>
        <extracomment>The foot of the window. Marble is the name of a program</extracomment>
        <translation>Marble 正在运行，但没有响应。</translation>
    </message>
</context>
<context>
    <name>pinorama::MainWindow</name>
    <message>
        <source>Preview</source>
        <extracomment>What a screen reader says of the small picture</extracomment>
        <translation>预览</translation>
    </message>
    <message>
        <source>The picture has a location</source>
        <extracomment>Tool tip of the pin in the corner of the small map</extracomment>
        <translation>照片中记录了拍摄地点</translation>
    </message>
    <message>
        <source>Opens the location in a web map</source>
        <extracomment>Tool tip of the pop-up menu of map services</extracomment>
        <translation>在网络地图中打开此地点</translation>
    </message>
    <message>
        <source>Map Services</source>
        <extracomment>The first line of a pop-up menu of web maps</extracomment>
        <translation>地图服务</translation>
    </message>
    <message>
        <source>Flies the globe program to the location</source>
        <extracomment>Tool tip of the button &quot;Show in Globe&quot;</extracomment>
        <translation>在地球仪程序中飞往此地点</translation>
    </message>
    <message>
        <source>Show in &amp;Globe</source>
        <extracomment>A button: shows the place in a globe program such as Marble. Keep it short</extracomment>
        <translation>在地球仪中显示(&amp;G)</translation>
    </message>
    <message>
        <source>Finds all catalogued pictures taken within 2000 m</source>
        <extracomment>Tool tip of the button &quot;Find in Skallion&quot;</extracomment>
        <translation>查找 2000&#xa0;米范围内拍摄的所有已编目照片</translation>
    </message>
    <message>
        <source>&amp;Find in Skallion</source>
        <extracomment>A button. Skallion is a program that catalogues pictures; the name stays. Keep it short</extracomment>
        <translation>在 Skallion 中查找(&amp;F)</translation>
    </message>
    <message>
        <source>Writes the location as a placemark file</source>
        <extracomment>Tool tip of the button &quot;Export as KML&quot;</extracomment>
        <translation>将此地点另存为地标文件</translation>
    </message>
    <message>
        <source>&amp;Export as KML…</source>
        <extracomment>A button. KML is a kind of file; the name stays. Keep it short</extracomment>
        <translation>导出为 KML(&amp;E)…</translation>
    </message>
    <message>
        <source>Name:</source>
        <extracomment>Caption before the name of the file</extracomment>
        <translation>名称：</translation>
    </message>
    <message>
        <source>Select a picture, or drop one here</source>
        <extracomment>Stands in the empty field for the name until a picture is shown</extracomment>
        <translation>选择一张照片，或将其拖放到此处</translation>
    </message>
    <message>
        <source>Size:</source>
        <extracomment>Caption before the size of the file, such as &quot;1.2 MB&quot;</extracomment>
        <translation>大小：</translation>
    </message>
    <message>
        <source>Modified:</source>
        <extracomment>Caption before the time at which the file was last changed</extracomment>
        <translation>修改时间：</translation>
    </message>
    <message>
        <source>Created:</source>
        <extracomment>Caption before the time at which the file was made</extracomment>
        <translation>创建时间：</translation>
    </message>
    <message>
        <source>Coordinate:</source>
        <extracomment>Caption before the coordinate of the place</extracomment>
        <translation>坐标：</translation>
    </message>
    <message>
        <source>Altitude:</source>
        <extracomment>Caption before the height above the sea, such as &quot;1,200 m&quot;</extracomment>
        <translation>海拔：</translation>
    </message>
    <message>
        <source>Direction:</source>
        <extracomment>Caption before the direction that the camera looked in</extracomment>
        <translation>方向：</translation>
    </message>
    <message>
        <source>City:</source>
        <extracomment>Caption before the name of the town, which the photographer wrote into the picture</extracomment>
        <translation>城市：</translation>
    </message>
    <message>
        <source>State:</source>
        <extracomment>Caption before the name of the state or province, which the photographer wrote into the picture</extracomment>
        <translation>省/州：</translation>
    </message>
    <message>
        <source>Country:</source>
        <extracomment>Caption before the name of the country, which the photographer wrote into the picture</extracomment>
        <translation>国家：</translation>
    </message>
    <message>
        <source>Caption:</source>
        <extracomment>Caption before the description, which the photographer wrote into the picture</extracomment>
        <translation>说明：</translation>
    </message>
    <message>
        <source>Always shows the picture selected in the file manager</source>
        <extracomment>Tool tip of the check box &quot;Follow the selection&quot;</extracomment>
        <translation>始终显示在文件管理器中所选的照片</translation>
    </message>
    <message>
        <source>Follow the &amp;selection in the file manager</source>
        <extracomment>A check box at the foot of the window</extracomment>
        <translation>跟随文件管理器中选中的文件(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Picture</source>
        <extracomment>A menu of the menu bar</extracomment>
        <translation>照片(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu of the menu bar</extracomment>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <extracomment>Menu entry: has the user choose a file</extracomment>
        <translation>打开(&amp;O)…</translation>
    </message>
    <message>
        <source>Open in &amp;Map Service</source>
        <extracomment>Menu entry: its submenu has the web maps</extracomment>
        <translation>在地图服务中打开(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <extracomment>Menu entry: the program goes on running</extracomment>
        <translation>关闭窗口(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Quit Pinorama</source>
        <extracomment>Menu entry: ends the program. Pinorama is its name and stays</extracomment>
        <translation>退出 Pinorama(&amp;Q)</translation>
    </message>
    <message>
        <source>Pinorama &amp;Home Page</source>
        <extracomment>Menu entry: opens the page in the browser. Pinorama stays</extracomment>
        <translation>Pinorama 主页(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Donate…</source>
        <extracomment>Menu entry: opens a page on which one can give the makers money</extracomment>
        <translation>捐助(&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;About Pinorama</source>
        <extracomment>Menu entry: opens the dialog with the version and the licence. Pinorama stays</extracomment>
        <translation>关于 Pinorama(&amp;A)</translation>
    </message>
    <message>
        <source>Cop&amp;y Coordinate</source>
        <extracomment>Menu entry: copies the coordinate as the window shows it</extracomment>
        <translation>复制坐标(&amp;Y)</translation>
    </message>
    <message>
        <source>Copy as &amp;Decimal Degrees</source>
        <extracomment>Menu entry: copies the coordinate, as in &quot;-54.80190, -68.30300&quot;</extracomment>
        <translation>以十进制度数复制(&amp;D)</translation>
    </message>
    <message>
        <source>Pinorama &amp;Manual</source>
        <extracomment>Menu entry: opens the manual. Pinorama stays</extracomment>
        <translation>Pinorama 手册(&amp;M)</translation>
    </message>
    <message>
        <source>Place</source>
        <extracomment>What a screen reader says before the place in words.</extracomment>
        <translation>地点</translation>
    </message>
    <message>
        <source>A click shows more of the surroundings, or less</source>
        <extracomment>Of the small map.</extracomment>
        <translation>点击可显示更大或更小的范围</translation>
    </message>
    <message>
        <source>&amp;Read More Kinds of Files</source>
        <extracomment>Menu entry with a check mark: has pictures of more kinds and videos read, too</extracomment>
        <translation>读取更多类型的文件(&amp;R)</translation>
    </message>
    <message>
        <source>Taken:</source>
        <extracomment>The time at which the picture was taken.</extracomment>
        <translation>拍摄：</translation>
    </message>
    <message>
        <source>&amp;Keep Above Other Windows</source>
        <extracomment>Menu entry with a check mark: the window stays in front of those of other programs</extracomment>
        <translation>窗口置顶(&amp;K)</translation>
    </message>
</context>
<context>
    <name>pinorama::MoreKinds</name>
    <message>
        <source>From Exif</source>
        <extracomment>Tool tip: the part of the file that has the value. Exif is a name and stays</extracomment>
        <translation>来自 Exif</translation>
    </message>
    <message>
        <source>From IPTC</source>
        <extracomment>Tool tip: the part of the file that has the value. IPTC is a name and stays</extracomment>
        <translation>来自 IPTC</translation>
    </message>
    <message>
        <source>From XMP in the file</source>
        <extracomment>Tool tip: the part of the file that has the value. XMP is a name and stays</extracomment>
        <translation>来自文件中的 XMP</translation>
    </message>
    <message>
        <source>From the video</source>
        <extracomment>Tool tip: the value stands in the video itself</extracomment>
        <translation>来自视频</translation>
    </message>
    <message>
        <source>From the XMP file beside it</source>
        <extracomment>Tool tip: the value stands in another file in the same folder. XMP is a name and stays</extracomment>
        <translation>来自旁边的 XMP 文件</translation>
    </message>
    <message>
        <source>Read Them</source>
        <extracomment>Button beside &quot;... pictures can be read, too&quot;: has them read from now on</extracomment>
        <translation>读取</translation>
    </message>
    <message>
        <source>%1 pictures can be read, too.</source>
        <extracomment>At the foot of the window; %1 is the name of a kind, such as &quot;HEIC&quot;, and no number</extracomment>
        <translation>也可以读取 %1 照片。</translation>
    </message>
    <message>
        <source>%1 videos can be read, too.</source>
        <extracomment>At the foot of the window; %1 is the name of a kind, such as &quot;MP4&quot;, and no number</extracomment>
        <translation>也可以读取 %1 视频。</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyModel</name>
    <message>
        <source>same place</source>
        <extracomment>Below a picture, in the place of a distance: it was taken where the other one was</extracomment>
        <translation>同一地点</translation>
    </message>
    <message>
        <source>%1 m %2</source>
        <extracomment>Below a picture: %1 is a distance, %2 a point of the compass: 350 m NE</extracomment>
        <translation>%2 %1&#xa0;米</translation>
    </message>
    <message>
        <source>%1 km %2</source>
        <extracomment>Below a picture: %1 is a distance, %2 a point of the compass: 1.2 km NE</extracomment>
        <translation>%2 %1&#xa0;公里</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyWindow</name>
    <message>
        <source>&amp;Stop</source>
        <extracomment>Button: ends the search</extracomment>
        <translation>停止(&amp;S)</translation>
    </message>
    <message>
        <source>Pictures Nearby</source>
        <extracomment>Title of the window</extracomment>
        <translation>附近的照片</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <extracomment>Context menu: opens the picture in the program for it</extracomment>
        <translation>打开(&amp;O)</translation>
    </message>
    <message>
        <source>Within %1 m of %2</source>
        <extracomment>Above the pictures that were found; %1 is a distance, %2 the name of a file</extracomment>
        <translation>距 %2 %1&#xa0;米以内</translation>
    </message>
    <message>
        <source>Searching...</source>
        <extracomment>Below the pictures, until the first is found</extracomment>
        <translation>正在查找...</translation>
    </message>
    <message>
        <source>Pictures cannot be searched for: the program pinorama-search does not start.</source>
        <extracomment>Below the pictures. pinorama-search is the name of a program and stays</extracomment>
        <translation>无法查找照片：程序 pinorama-search 无法启动。</translation>
    </message>
    <message>
        <source>No other picture within %1 m was found in these folders:
%2</source>
        <extracomment>In the place of the pictures; %1 is a distance, %2 a list of folders</extracomment>
        <translation>在以下文件夹中没有找到 %1&#xa0;米范围内的其他照片：
%2</translation>
    </message>
    <message>
        <source>Open &amp;With…</source>
        <extracomment>Context menu: has the user choose the program</extracomment>
        <translation>打开方式(&amp;W)…</translation>
    </message>
    <message numerus="yes">
        <source>Searching... %Ln picture(s) found so far</source>
        <extracomment>Below the pictures; %Ln is their number</extracomment>
        <translation>
            <numerusform>正在查找... 目前找到 %Ln 张照片</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Stopped. %Ln picture(s) found until then</source>
        <extracomment>Below the pictures, after the button &quot;Stop&quot;; %Ln is their number</extracomment>
        <translation>
            <numerusform>已停止。此前找到 %Ln 张照片</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The search ended too early. %Ln picture(s) found until then</source>
        <extracomment>Below the pictures: the search failed; %Ln is their number</extracomment>
        <translation>
            <numerusform>查找提前结束。此前找到 %Ln 张照片</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln picture(s) found. %1</source>
        <extracomment>Below the pictures; %Ln is a large number, %1 the text &quot;The nearest ... are shown.&quot;</extracomment>
        <translation>
            <numerusform>找到 %Ln 张照片。%1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The nearest %Ln picture(s) are shown.</source>
        <extracomment>The sentence after &quot;... pictures found.&quot;; %Ln is a large number</extracomment>
        <translation>
            <numerusform>显示其中最近的 %Ln 张。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln picture(s) found</source>
        <extracomment>Below the pictures; %Ln is their number</extracomment>
        <translation>
            <numerusform>找到 %Ln 张照片</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pinorama::Notice</name>
    <message>
        <source>&amp;Dismiss</source>
        <extracomment>A button that takes a notice in the window away</extracomment>
        <translation>关闭(&amp;D)</translation>
    </message>
</context>
<context>
    <name>pinorama::PathIntake</name>
    <message>
        <source>Open Picture</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>打开照片</translation>
    </message>
</context>
<context>
    <name>pinorama::PictureWords</name>
    <message>
        <source>%1 is a folder.</source>
        <extracomment>The foot of the window; so are the others. %1 is the name of the file that is shown</extracomment>
        <translation>%1 是文件夹。</translation>
    </message>
    <message>
        <source>%1 is not a file that can be read.</source>
        <extracomment>A pipe or a device</extracomment>
        <translation>%1 不是可以读取的文件。</translation>
    </message>
    <message>
        <source>Files of this type are not read; JPEG and the raw files of cameras are.</source>
        <extracomment>The foot of the window. JPEG stays</extracomment>
        <translation>不读取此类文件：只读取 JPEG 和相机的 RAW 文件。</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>没有文件 %1。</translation>
    </message>
    <message>
        <source>You are not allowed to read %1.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>您没有读取 %1 的权限。</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2.</source>
        <extracomment>%2 is the system&apos;s reason, such as &quot;Input/output error&quot;</extracomment>
        <translation>无法打开 %1：%2。</translation>
    </message>
    <message>
        <source>This picture does not say where it was taken.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>这张照片没有记录拍摄地点。</translation>
    </message>
    <message>
        <source>Several files are selected; the window shows one at a time.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>选中了多个文件；窗口一次只显示一个。</translation>
    </message>
</context>
<context>
    <name>pinorama::PlaceActions</name>
    <message>
        <source>Needs Marble, Google Earth or another program that opens KML files</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>需要 Marble、Google Earth 或其他能打开 KML 文件的程序</translation>
    </message>
    <message>
        <source>Without Skallion, pictures nearby are looked for in the folders around this one</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>没有 Skallion 时，在周围的文件夹中查找附近的照片</translation>
    </message>
    <message>
        <source>The address of %1 has no room for latitude and longitude.</source>
        <extracomment>The foot of the window. %1 is the title of a map service that the user has added</extracomment>
        <translation>%1 的地址中没有可填入纬度和经度的位置。</translation>
    </message>
</context>
<context>
    <name>pinorama::ReadingNotice</name>
    <message>
        <source>Still reading %1...</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>仍在读取 %1...</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>无法读取 %1。</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <extracomment>The foot of the window; %1 is the name of a file that is being read and takes too long, as when a network is gone</extracomment>
        <translation>%1 没有响应。</translation>
    </message>
    <message>
        <source>The XMP file beside %1 could not be read.</source>
        <extracomment>The foot of the window; %1 is the name of a file. XMP is a kind of file and stays</extracomment>
        <translation>无法读取 %1 旁边的 XMP 文件。</translation>
    </message>
    <message>
        <source>The XMP file beside %1 does not answer.</source>
        <extracomment>The foot of the window; %1 is the name of a file. XMP is a kind of file and stays</extracomment>
        <translation>%1 旁边的 XMP 文件没有响应。</translation>
    </message>
</context>
<context>
    <name>pinorama::SayingOpener</name>
    <message>
        <source>No web browser is installed.</source>
        <extracomment>The foot of the window; so are the others</extracomment>
        <translation>没有安装网页浏览器。</translation>
    </message>
    <message>
        <source>No program opens geo: addresses. Marble and GNOME Maps do.</source>
        <extracomment>&quot;geo:&quot; is the beginning of an address; the names are those of programs</extracomment>
        <translation>没有程序可以打开 geo: 地址。Marble 和 GNOME 地图可以打开。</translation>
    </message>
    <message>
        <source>No program opens KML files. Marble and Google Earth do.</source>
        <extracomment>The foot of the window. KML is a kind of file; the names of programs stay</extracomment>
        <translation>没有程序可以打开 KML 文件。Marble 和 Google Earth 可以打开。</translation>
    </message>
    <message>
        <source>No program opens addresses that begin with %1:.</source>
        <extracomment>%1 is the beginning of an address, such as &quot;om&quot;</extracomment>
        <translation>没有程序可以打开以 %1: 开头的地址。</translation>
    </message>
    <message>
        <source>No program opens %1.</source>
        <extracomment>The foot of the window. %1 is the name of a file, such as manual.md</extracomment>
        <translation>没有可打开 %1 的程序。</translation>
    </message>
    <message>
        <source>%1 is not a valid address.</source>
        <extracomment>The foot of the window. %1 is an address that the user has written</extracomment>
        <translation>%1 不是有效的地址。</translation>
    </message>
    <message>
        <source>%1 could not be opened. Is xdg-utils installed?</source>
        <extracomment>The foot of the window. %1 is an address; xdg-utils is the name of a package</extracomment>
        <translation>无法打开 %1。是否已安装 xdg-utils？</translation>
    </message>
</context>
<context>
    <name>pinorama::StaleFields</name>
    <message>
        <source>from %1</source>
        <extracomment>Of a text that belongs to an earlier picture; %1 is the name of that</extracomment>
        <translation>来自 %1</translation>
    </message>
</context>
</TS>
