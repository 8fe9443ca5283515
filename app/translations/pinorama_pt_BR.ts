<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Pinorama</source>
        <extracomment>Title of the dialog. Pinorama stays</extracomment>
        <translation>Sobre o Pinorama</translation>
    </message>
    <message>
        <source>Shows where the picture selected in the file manager was taken.</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;: what the program does</extracomment>
        <translation>Mostra onde foi tirada a foto selecionada no gerenciador de arquivos.</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes with no warranty.</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;. The name of the licence stays</extracomment>
        <translation>Software livre sob a Licença Pública Geral GNU, versão 3 ou posterior. Fornecido sem nenhuma garantia.</translation>
    </message>
    <message>
        <source>Made with these libraries:</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;, above a list</extracomment>
        <translation>Bibliotecas utilizadas:</translation>
    </message>
    <message>
        <source>Places and map are made from:</source>
        <extracomment>In the dialog &quot;About Pinorama&quot;, above a list of sources</extracomment>
        <translation>Fontes dos lugares e do mapa:</translation>
    </message>
</context>
<context>
    <name>pinorama::AccessibilityNotice</name>
    <message>
        <source>S&amp;witch On</source>
        <extracomment>Button of the notice about accessibility: switches it on</extracomment>
        <translation>A&amp;tivar</translation>
    </message>
    <message>
        <source>Pinorama can follow the selection in %1 once accessibility is on. This is a permanent setting of your desktop; restart the file manager after switching it on.</source>
        <extracomment>A notice in the window; %1 is the name of a file manager. Accessibility as in the settings of desktops</extracomment>
        <translation>O Pinorama pode acompanhar a seleção no %1 quando a acessibilidade estiver ativada. É uma configuração permanente da área de trabalho; depois de ativá-la, reinicie o gerenciador de arquivos.</translation>
    </message>
    <message>
        <source>Accessibility is on. Restart %1 or log in again; Pinorama then follows its selection.</source>
        <extracomment>A notice in the window; %1 is the name of a file manager</extracomment>
        <translation>A acessibilidade está ativada. Reinicie o %1 ou entre novamente na sessão; o Pinorama acompanhará então a seleção.</translation>
    </message>
    <message>
        <source>Accessibility could not be switched on. The manual explains how to do it by hand.</source>
        <extracomment>A notice in the window</extracomment>
        <translation>Não foi possível ativar a acessibilidade. O manual explica como fazer isso à mão.</translation>
    </message>
</context>
<context>
    <name>pinorama::AppController</name>
    <message>
        <source>Files cannot be opened: the program pinorama-opener does not start.</source>
        <extracomment>The foot of the window. pinorama-opener is the name of a program and stays</extracomment>
        <translation>Não é possível abrir os arquivos: o programa pinorama-opener não inicia.</translation>
    </message>
    <message>
        <source>Pictures cannot be read: the program pinorama-reader does not start.</source>
        <extracomment>The foot of the window. pinorama-reader is the name of a program and stays</extracomment>
        <translation>Não é possível ler as fotos: o programa pinorama-reader não inicia.</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <extracomment>Reads the file again that is shown</extracomment>
        <translation>&amp;Recarregar</translation>
    </message>
</context>
<context>
    <name>pinorama::ClosingWords</name>
    <message>
        <source>Pinorama keeps running when its window is closed. %1 &gt; %2 ends it.</source>
        <extracomment>The foot of the window, once: %1 is the title of a menu, %2 of the entry in it that ends the program. Pinorama stays</extracomment>
        <translation>O Pinorama continua em execução quando a janela é fechada. %1 &gt; %2 o encerra.</translation>
    </message>
</context>
<context>
    <name>pinorama::CopyMenu</name>
    <message>
        <source>Copy &amp;It As</source>
        <extracomment>The menu of the forms in which a place can be copied</extracomment>
        <translation>Copiar c&amp;omo</translation>
    </message>
    <message>
        <source>As Shown</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: the coordinate as the window shows it</extracomment>
        <translation>Como exibido</translation>
    </message>
    <message>
        <source>Decimal Degrees</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: copies &quot;-54.80190, -68.30300&quot;</extracomment>
        <translation>Graus decimais</translation>
    </message>
    <message>
        <source>Degrees and Decimal Minutes</source>
        <extracomment>Entry of the menu &quot;Copy It As&quot;: copies &quot;54° 48.114&apos; S&quot;</extracomment>
        <translation>Graus e minutos decimais</translation>
    </message>
    <message>
        <source>geo: Address</source>
        <extracomment>An address that begins with &quot;geo:&quot;, which map programs take</extracomment>
        <translation>Endereço “geo:”</translation>
    </message>
    <message>
        <source>Place in Words</source>
        <extracomment>Copies &quot;Near Ushuaia, Argentina&quot;</extracomment>
        <translation>Local em palavras</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <extracomment>%1 is a map service, such as OpenStreetMap</extracomment>
        <translation>Link para %1</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportDialog</name>
    <message>
        <source>KML files (*.kml)</source>
        <extracomment>Kind of files in a file dialog; &quot;(*.kml)&quot; stays</extracomment>
        <translation>Arquivos KML (*.kml)</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportNotice</name>
    <message>
        <source>the disk is full.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>o disco está cheio.</translation>
    </message>
    <message>
        <source>writing there is not allowed.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>não é permitido gravar ali.</translation>
    </message>
    <message>
        <source>there is no such folder.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>essa pasta não existe.</translation>
    </message>
    <message>
        <source>a folder has that name.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>uma pasta tem esse nome.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <extracomment>A notice in the window: %1 is the name of a file, %2 a reason, with its full stop</extracomment>
        <translation>Não foi possível gravar %1: %2</translation>
    </message>
    <message>
        <source>Show in Fo&amp;lder</source>
        <extracomment>A button: shows the file in the file manager</extracomment>
        <translation>Mostrar na &amp;pasta</translation>
    </message>
    <message>
        <source>the disk does not answer.</source>
        <extracomment>A reason; stands in the place of %2 in &quot;%1 could not be written: %2&quot;</extracomment>
        <translation>o disco não responde.</translation>
    </message>
    <message>
        <source>%1 was saved in %2.</source>
        <extracomment>The foot of the window. %1 is the name of a file that was written, %2 the folder that it is in</extracomment>
        <translation>%1 foi salvo em %2.</translation>
    </message>
</context>
<context>
    <name>pinorama::GlobeNotice</name>
    <message>
        <source>The globe program cannot be started.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>Não é possível iniciar o globo virtual.</translation>
    </message>
    <message>
        <source>The file for the globe program cannot be written.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>Não é possível gravar o arquivo para o globo virtual.</translation>
    </message>
    <message>
        <source>Marble was started, but has not appeared yet.</source>
        <extracomment>The foot of the window. Marble is the name of a program</extracomment>
        <translation>O Marble foi iniciado, mas ainda não apareceu.</translation>
    </message>
    <message>
        <source>Marble is running, but does not answer.</source>
        <extracomment>The foot of the window. Marble is the name of a program</extracomment>
        <translation>O Marble está em execução, mas não responde.</translation>
    </message>
</context>
<context>
    <name>pinorama::MainWindow</name>
    <message>
        <source>Preview</source>
        <extracomment>What a screen reader says of the small picture</extracomment>
        <translation>Pré-visualização</translation>
    </message>
    <message>
        <source>The picture has a location</source>
        <extracomment>Tool tip of the pin in the corner of the small map</extracomment>
        <translation>A foto informa onde foi tirada</translation>
    </message>
    <message>
        <source>Opens the location in a web map</source>
        <extracomment>Tool tip of the pop-up menu of map services</extracomment>
        <translation>Abre o local em um mapa na web</translation>
    </message>
    <message>
        <source>Map Services</source>
        <extracomment>The first line of a pop-up menu of web maps</extracomment>
        <translation>Serviços de mapas</translation>
    </message>
    <message>
        <source>Flies the globe program to the location</source>
        <extracomment>Tool tip of the button &quot;Show in Globe&quot;</extracomment>
        <translation>Leva o globo virtual até o local</translation>
    </message>
    <message>
        <source>Show in &amp;Globe</source>
        <extracomment>A button: shows the place in a globe program such as Marble. Keep it short</extracomment>
        <translation>Ver no &amp;globo</translation>
    </message>
    <message>
        <source>Finds all catalogued pictures taken within 2000 m</source>
        <extracomment>Tool tip of the button &quot;Find in Skallion&quot;</extracomment>
        <translation>Encontra todas as fotos catalogadas tiradas a até 2000&#xa0;m</translation>
    </message>
    <message>
        <source>&amp;Find in Skallion</source>
        <extracomment>A button. Skallion is a program that catalogues pictures; the name stays. Keep it short</extracomment>
        <translation>&amp;Buscar no Skallion</translation>
    </message>
    <message>
        <source>Writes the location as a placemark file</source>
        <extracomment>Tool tip of the button &quot;Export as KML&quot;</extracomment>
        <translation>Salva o local como marcador em um arquivo</translation>
    </message>
    <message>
        <source>&amp;Export as KML…</source>
        <extracomment>A button. KML is a kind of file; the name stays. Keep it short</extracomment>
        <translation>&amp;Exportar como KML…</translation>
    </message>
    <message>
        <source>Name:</source>
        <extracomment>Caption before the name of the file</extracomment>
        <translation>Nome:</translation>
    </message>
    <message>
        <source>Select a picture, or drop one here</source>
        <extracomment>Stands in the empty field for the name until a picture is shown</extracomment>
        <translation>Selecione uma foto ou solte-a aqui</translation>
    </message>
    <message>
        <source>Size:</source>
        <extracomment>Caption before the size of the file, such as &quot;1.2 MB&quot;</extracomment>
        <translation>Tamanho:</translation>
    </message>
    <message>
        <source>Modified:</source>
        <extracomment>Caption before the time at which the file was last changed</extracomment>
        <translation>Modificado:</translation>
    </message>
    <message>
        <source>Created:</source>
        <extracomment>Caption before the time at which the file was made</extracomment>
        <translation>Criado:</translation>
    </message>
    <message>
        <source>Coordinate:</source>
        <extracomment>Caption before the coordinate of the place</extracomment>
        <translation>Coordenadas:</translation>
    </message>
    <message>
        <source>Altitude:</source>
        <extracomment>Caption before the height above the sea, such as &quot;1,200 m&quot;</extracomment>
        <translation>Altitude:</translation>
    </message>
    <message>
        <source>Direction:</source>
        <extracomment>Caption before the direction that the camera looked in</extracomment>
        <translation>Direção:</translation>
    </message>
    <message>
        <source>City:</source>
        <extracomment>Caption before the name of the town, which the photographer wrote into the picture</extracomment>
        <translation>Cidade:</translation>
    </message>
    <message>
        <source>State:</source>
        <extracomment>Caption before the name of the state or province, which the photographer wrote into the picture</extracomment>
        <translation>Estado:</translation>
    </message>
    <message>
        <source>Country:</source>
        <extracomment>Caption before the name of the country, which the photographer wrote into the picture</extracomment>
        <translation>País:</translation>
    </message>
    <message>
        <source>Caption:</source>
        <extracomment>Caption before the description, which the photographer wrote into the picture</extracomment>
        <translation>Legenda:</translation>
    </message>
    <message>
        <source>Always shows the picture selected in the file manager</source>
        <extracomment>Tool tip of the check box &quot;Follow the selection&quot;</extracomment>
        <translation>Mostra sempre a foto selecionada no gerenciador de arquivos</translation>
    </message>
    <message>
        <source>Follow the &amp;selection in the file manager</source>
        <extracomment>A check box at the foot of the window</extracomment>
        <translation>Acompanhar a &amp;seleção do gerenciador de arquivos</translation>
    </message>
    <message>
        <source>&amp;Picture</source>
        <extracomment>A menu of the menu bar</extracomment>
        <translation>&amp;Foto</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <extracomment>A menu of the menu bar</extracomment>
        <translation>&amp;Ajuda</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <extracomment>Menu entry: has the user choose a file</extracomment>
        <translation>&amp;Abrir…</translation>
    </message>
    <message>
        <source>Open in &amp;Map Service</source>
        <extracomment>Menu entry: its submenu has the web maps</extracomment>
        <translation>Abrir em um serviço de &amp;mapas</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <extracomment>Menu entry: the program goes on running</extracomment>
        <translation>&amp;Fechar janela</translation>
    </message>
    <message>
        <source>&amp;Quit Pinorama</source>
        <extracomment>Menu entry: ends the program. Pinorama is its name and stays</extracomment>
        <translation>&amp;Sair do Pinorama</translation>
    </message>
    <message>
        <source>Pinorama &amp;Home Page</source>
        <extracomment>Menu entry: opens the page in the browser. Pinorama stays</extracomment>
        <translation>Página &amp;web do Pinorama</translation>
    </message>
    <message>
        <source>&amp;Donate…</source>
        <extracomment>Menu entry: opens a page on which one can give the makers money</extracomment>
        <translation>&amp;Doar…</translation>
    </message>
    <message>
        <source>&amp;About Pinorama</source>
        <extracomment>Menu entry: opens the dialog with the version and the licence. Pinorama stays</extracomment>
        <translation>&amp;Sobre o Pinorama</translation>
    </message>
    <message>
        <source>Cop&amp;y Coordinate</source>
        <extracomment>Menu entry: copies the coordinate as the window shows it</extracomment>
        <translation>Co&amp;piar coordenadas</translation>
    </message>
    <message>
        <source>Copy as &amp;Decimal Degrees</source>
        <extracomment>Menu entry: copies the coordinate, as in &quot;-54.80190, -68.30300&quot;</extracomment>
        <translation>Copiar em graus &amp;decimais</translation>
    </message>
    <message>
        <source>Pinorama &amp;Manual</source>
        <extracomment>Menu entry: opens the manual. Pinorama stays</extracomment>
        <translation>&amp;Manual do Pinorama</translation>
    </message>
    <message>
        <source>Place</source>
        <extracomment>What a screen reader says before the place in words.</extracomment>
        <translation>Local</translation>
    </message>
    <message>
        <source>A click shows more of the surroundings, or less</source>
        <extracomment>Of the small map.</extracomment>
        <translation>Um clique mostra mais ou menos dos arredores</translation>
    </message>
    <message>
        <source>&amp;Read More Kinds of Files</source>
        <extracomment>Menu entry with a check mark: has pictures of more kinds and videos read, too</extracomment>
        <translation>Ler mais &amp;tipos de arquivos</translation>
    </message>
    <message>
        <source>Taken:</source>
        <extracomment>The time at which the picture was taken.</extracomment>
        <translation>Tirada:</translation>
    </message>
    <message>
        <source>&amp;Keep Above Other Windows</source>
        <extracomment>Menu entry with a check mark: the window stays in front of those of other programs</extracomment>
        <translation>Sempre acima de outras &amp;janelas</translation>
    </message>
</context>
<context>
    <name>pinorama::MoreKinds</name>
    <message>
        <source>From Exif</source>
        <extracomment>Tool tip: the part of the file that has the value. Exif is a name and stays</extracomment>
        <translation>Do Exif</translation>
    </message>
    <message>
        <source>From IPTC</source>
        <extracomment>Tool tip: the part of the file that has the value. IPTC is a name and stays</extracomment>
        <translation>Do IPTC</translation>
    </message>
    <message>
        <source>From XMP in the file</source>
        <extracomment>Tool tip: the part of the file that has the value. XMP is a name and stays</extracomment>
        <translation>Do XMP no arquivo</translation>
    </message>
    <message>
        <source>From the video</source>
        <extracomment>Tool tip: the value stands in the video itself</extracomment>
        <translation>Do vídeo</translation>
    </message>
    <message>
        <source>From the XMP file beside it</source>
        <extracomment>Tool tip: the value stands in another file in the same folder. XMP is a name and stays</extracomment>
        <translation>Do arquivo XMP ao lado</translation>
    </message>
    <message>
        <source>Read Them</source>
        <extracomment>Button beside &quot;... pictures can be read, too&quot;: has them read from now on</extracomment>
        <translation>Ler</translation>
    </message>
    <message>
        <source>%1 pictures can be read, too.</source>
        <extracomment>At the foot of the window; %1 is the name of a kind, such as &quot;HEIC&quot;, and no number</extracomment>
        <translation>Fotos %1 também podem ser lidas.</translation>
    </message>
    <message>
        <source>%1 videos can be read, too.</source>
        <extracomment>At the foot of the window; %1 is the name of a kind, such as &quot;MP4&quot;, and no number</extracomment>
        <translation>Vídeos %1 também podem ser lidos.</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyModel</name>
    <message>
        <source>same place</source>
        <extracomment>Below a picture, in the place of a distance: it was taken where the other one was</extracomment>
        <translation>mesmo local</translation>
    </message>
    <message>
        <source>%1 m %2</source>
        <extracomment>Below a picture: %1 is a distance, %2 a point of the compass: 350 m NE</extracomment>
        <translation>%1&#xa0;m %2</translation>
    </message>
    <message>
        <source>%1 km %2</source>
        <extracomment>Below a picture: %1 is a distance, %2 a point of the compass: 1.2 km NE</extracomment>
        <translation>%1&#xa0;km %2</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyWindow</name>
    <message>
        <source>&amp;Stop</source>
        <extracomment>Button: ends the search</extracomment>
        <translation>&amp;Parar</translation>
    </message>
    <message>
        <source>Pictures Nearby</source>
        <extracomment>Title of the window</extracomment>
        <translation>Fotos por perto</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <extracomment>Context menu: opens the picture in the program for it</extracomment>
        <translation>&amp;Abrir</translation>
    </message>
    <message>
        <source>Within %1 m of %2</source>
        <extracomment>Above the pictures that were found; %1 is a distance, %2 the name of a file</extracomment>
        <translation>A até %1&#xa0;m de %2</translation>
    </message>
    <message>
        <source>Searching...</source>
        <extracomment>Below the pictures, until the first is found</extracomment>
        <translation>Pesquisando...</translation>
    </message>
    <message>
        <source>Pictures cannot be searched for: the program pinorama-search does not start.</source>
        <extracomment>Below the pictures. pinorama-search is the name of a program and stays</extracomment>
        <translation>Não é possível pesquisar fotos: o programa pinorama-search não inicia.</translation>
    </message>
    <message>
        <source>No other picture within %1 m was found in these folders:
%2</source>
        <extracomment>In the place of the pictures; %1 is a distance, %2 a list of folders</extracomment>
        <translation>Nenhuma outra foto a até %1&#xa0;m foi encontrada nestas pastas:
%2</translation>
    </message>
    <message>
        <source>Open &amp;With…</source>
        <extracomment>Context menu: has the user choose the program</extracomment>
        <translation>Abrir &amp;com…</translation>
    </message>
    <message numerus="yes">
        <source>Searching... %Ln picture(s) found so far</source>
        <extracomment>Below the pictures; %Ln is their number</extracomment>
        <translation>
            <numerusform>Pesquisando... %Ln foto encontrada até agora</numerusform>
            <numerusform>Pesquisando... %Ln fotos encontradas até agora</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Stopped. %Ln picture(s) found until then</source>
        <extracomment>Below the pictures, after the button &quot;Stop&quot;; %Ln is their number</extracomment>
        <translation>
            <numerusform>Parado. %Ln foto encontrada até então</numerusform>
            <numerusform>Parado. %Ln fotos encontradas até então</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The search ended too early. %Ln picture(s) found until then</source>
        <extracomment>Below the pictures: the search failed; %Ln is their number</extracomment>
        <translation>
            <numerusform>A pesquisa terminou antes da hora. %Ln foto encontrada até então</numerusform>
            <numerusform>A pesquisa terminou antes da hora. %Ln fotos encontradas até então</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln picture(s) found. %1</source>
        <extracomment>Below the pictures; %Ln is a large number, %1 the text &quot;The nearest ... are shown.&quot;</extracomment>
        <translation>
            <numerusform>%Ln foto encontrada. %1</numerusform>
            <numerusform>%Ln fotos encontradas. %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The nearest %Ln picture(s) are shown.</source>
        <extracomment>The sentence after &quot;... pictures found.&quot;; %Ln is a large number</extracomment>
        <translation>
            <numerusform>É mostrada %Ln foto, a mais próxima.</numerusform>
            <numerusform>São mostradas as %Ln fotos mais próximas.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln picture(s) found</source>
        <extracomment>Below the pictures; %Ln is their number</extracomment>
        <translation>
            <numerusform>%Ln foto encontrada</numerusform>
            <numerusform>%Ln fotos encontradas</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>pinorama::Notice</name>
    <message>
        <source>&amp;Dismiss</source>
        <extracomment>A button that takes a notice in the window away</extracomment>
        <translation>&amp;Ocultar</translation>
    </message>
</context>
<context>
    <name>pinorama::PathIntake</name>
    <message>
        <source>Open Picture</source>
        <extracomment>Title of the file dialog</extracomment>
        <translation>Abrir foto</translation>
    </message>
</context>
<context>
    <name>pinorama::PictureWords</name>
    <message>
        <source>%1 is a folder.</source>
        <extracomment>The foot of the window; so are the others. %1 is the name of the file that is shown</extracomment>
        <translation>%1 é uma pasta.</translation>
    </message>
    <message>
        <source>%1 is not a file that can be read.</source>
        <extracomment>A pipe or a device</extracomment>
        <translation>%1 não é um arquivo que possa ser lido.</translation>
    </message>
    <message>
        <source>Files of this type are not read; JPEG and the raw files of cameras are.</source>
        <extracomment>The foot of the window. JPEG stays</extracomment>
        <translation>Arquivos deste tipo não são lidos: apenas JPEG e os arquivos RAW das câmeras.</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>Não há nenhum arquivo %1.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>Você não tem permissão para ler %1.</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2.</source>
        <extracomment>%2 is the system&apos;s reason, such as &quot;Input/output error&quot;</extracomment>
        <translation>Não é possível abrir %1: %2.</translation>
    </message>
    <message>
        <source>This picture does not say where it was taken.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>Esta foto não informa onde foi tirada.</translation>
    </message>
    <message>
        <source>Several files are selected; the window shows one at a time.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>Há vários arquivos selecionados; a janela mostra um de cada vez.</translation>
    </message>
</context>
<context>
    <name>pinorama::PlaceActions</name>
    <message>
        <source>Needs Marble, Google Earth or another program that opens KML files</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Requer o Marble, o Google Earth ou outro programa que abra arquivos KML</translation>
    </message>
    <message>
        <source>Without Skallion, pictures nearby are looked for in the folders around this one</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Sem o Skallion, as fotos próximas são procuradas nas pastas ao redor</translation>
    </message>
    <message>
        <source>The address of %1 has no room for latitude and longitude.</source>
        <extracomment>The foot of the window. %1 is the title of a map service that the user has added</extracomment>
        <translation>O endereço de %1 não tem lugar para a latitude e a longitude.</translation>
    </message>
</context>
<context>
    <name>pinorama::ReadingNotice</name>
    <message>
        <source>Still reading %1...</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>Ainda lendo %1...</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <extracomment>The foot of the window; %1 is the name of a file</extracomment>
        <translation>Não foi possível ler %1.</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <extracomment>The foot of the window; %1 is the name of a file that is being read and takes too long, as when a network is gone</extracomment>
        <translation>%1 não responde.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 could not be read.</source>
        <extracomment>The foot of the window; %1 is the name of a file. XMP is a kind of file and stays</extracomment>
        <translation>Não foi possível ler o arquivo XMP ao lado de %1.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 does not answer.</source>
        <extracomment>The foot of the window; %1 is the name of a file. XMP is a kind of file and stays</extracomment>
        <translation>O arquivo XMP ao lado de %1 não responde.</translation>
    </message>
</context>
<context>
    <name>pinorama::SayingOpener</name>
    <message>
        <source>No web browser is installed.</source>
        <extracomment>The foot of the window; so are the others</extracomment>
        <translation>Nenhum navegador está instalado.</translation>
    </message>
    <message>
        <source>No program opens geo: addresses. Marble and GNOME Maps do.</source>
        <extracomment>&quot;geo:&quot; is the beginning of an address; the names are those of programs</extracomment>
        <translation>Nenhum programa abre endereços geo:. O Marble e o Mapas do GNOME abrem.</translation>
    </message>
    <message>
        <source>No program opens KML files. Marble and Google Earth do.</source>
        <extracomment>The foot of the window. KML is a kind of file; the names of programs stay</extracomment>
        <translation>Nenhum programa abre arquivos KML. O Marble e o Google Earth abrem.</translation>
    </message>
    <message>
        <source>No program opens addresses that begin with %1:.</source>
        <extracomment>%1 is the beginning of an address, such as &quot;om&quot;</extracomment>
        <translation>Nenhum programa abre endereços que começam com %1:.</translation>
    </message>
    <message>
        <source>No program opens %1.</source>
        <extracomment>The foot of the window. %1 is the name of a file, such as manual.md</extracomment>
        <translation>Nenhum programa abre %1.</translation>
    </message>
    <message>
        <source>%1 is not a valid address.</source>
        <extracomment>The foot of the window. %1 is an address that the user has written</extracomment>
        <translation>%1 não é um endereço válido.</translation>
    </message>
    <message>
        <source>%1 could not be opened. Is xdg-utils installed?</source>
        <extracomment>The foot of the window. %1 is an address; xdg-utils is the name of a package</extracomment>
        <translation>Não foi possível abrir %1. O xdg-utils está instalado?</translation>
    </message>
</context>
<context>
    <name>pinorama::StaleFields</name>
    <message>
        <source>from %1</source>
        <extracomment>Of a text that belongs to an earlier picture; %1 is the name of that</extracomment>
        <translation>de %1</translation>
    </message>
</context>
</TS>
