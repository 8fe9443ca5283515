<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Pinorama</source>
        <translation>Sobre o Pinorama</translation>
    </message>
    <message>
        <source>Shows where the picture selected in the file manager was taken.</source>
        <translation>Mostra onde foi tirada a foto selecionada no gerenciador de arquivos.</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes with no warranty.</source>
        <translation>Software livre sob a Licença Pública Geral GNU, versão 3 ou posterior. Fornecido sem nenhuma garantia.</translation>
    </message>
    <message>
        <source>Made with these libraries:</source>
        <translation>Bibliotecas utilizadas:</translation>
    </message>
    <message>
        <source>Places and map are made from:</source>
        <translation>Fontes dos lugares e do mapa:</translation>
    </message>
</context>
<context>
    <name>pinorama::AccessibilityNotice</name>
    <message>
        <source>S&amp;witch On</source>
        <translation>A&amp;tivar</translation>
    </message>
    <message>
        <source>Pinorama can follow the selection in %1 once accessibility is on. This is a permanent setting of your desktop; restart the file manager after switching it on.</source>
        <translation>A seleção no %1 pode ser acompanhada quando a acessibilidade estiver ativada. É uma configuração permanente da área de trabalho; depois, reinicie o gerenciador de arquivos.</translation>
    </message>
    <message>
        <source>Accessibility is on. Restart %1 or log in again; Pinorama then follows its selection.</source>
        <translation>A acessibilidade está ativada. Reinicie o %1, ou entre novamente na sessão, para acompanhar a seleção.</translation>
    </message>
    <message>
        <source>Accessibility could not be switched on. The manual explains how to do it by hand.</source>
        <translation>Não foi possível ativar a acessibilidade. O manual explica como fazer isso à mão.</translation>
    </message>
</context>
<context>
    <name>pinorama::AppController</name>
    <message>
        <source>Files cannot be opened: the program pinorama-opener does not start.</source>
        <translation>Não é possível abrir os arquivos: o programa pinorama-opener não inicia.</translation>
    </message>
    <message>
        <source>Pictures cannot be read: the program pinorama-reader does not start.</source>
        <translation>Não é possível ler as fotos: o programa pinorama-reader não inicia.</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <extracomment>Reads the file again that is shown</extracomment>
        <translation>&amp;Recarregar</translation>
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
        <translation>Como exibido</translation>
    </message>
    <message>
        <source>Decimal Degrees</source>
        <translation>Graus decimais</translation>
    </message>
    <message>
        <source>Degrees and Decimal Minutes</source>
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
        <translation>Arquivos KML (*.kml)</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportNotice</name>
    <message>
        <source>the disk is full.</source>
        <translation>o disco está cheio.</translation>
    </message>
    <message>
        <source>writing there is not allowed.</source>
        <translation>não é permitido gravar ali.</translation>
    </message>
    <message>
        <source>there is no such folder.</source>
        <translation>essa pasta não existe.</translation>
    </message>
    <message>
        <source>a folder has that name.</source>
        <translation>uma pasta tem esse nome.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>Não foi possível gravar %1: %2</translation>
    </message>
    <message>
        <source>%1 was saved.</source>
        <extracomment>%1 is the name of a file that was written</extracomment>
        <translation>%1 foi salvo.</translation>
    </message>
    <message>
        <source>Show in Fo&amp;lder</source>
        <extracomment>A button: shows the file in the file manager</extracomment>
        <translation>Mostrar na &amp;pasta</translation>
    </message>
    <message>
        <source>the disk does not answer.</source>
        <translation>o disco não responde.</translation>
    </message>
</context>
<context>
    <name>pinorama::MainWindow</name>
    <message>
        <source>Preview</source>
        <translation>Pré-visualização</translation>
    </message>
    <message>
        <source>The picture has a location</source>
        <translation>A foto informa onde foi tirada</translation>
    </message>
    <message>
        <source>Opens the location in a web map</source>
        <translation>Abre o local em um mapa na web</translation>
    </message>
    <message>
        <source>Map Services</source>
        <translation>Serviços de mapas</translation>
    </message>
    <message>
        <source>Flies the globe program to the location</source>
        <translation>Leva o globo virtual até o local</translation>
    </message>
    <message>
        <source>Show in &amp;Globe</source>
        <translation>Ver no &amp;globo</translation>
    </message>
    <message>
        <source>Finds all catalogued pictures taken within 2000 m</source>
        <translation>Localiza todas as fotos catalogadas tiradas a até 2000&#xa0;m</translation>
    </message>
    <message>
        <source>&amp;Find in Skallion</source>
        <translation>&amp;Buscar no Skallion</translation>
    </message>
    <message>
        <source>Writes the location as a placemark file</source>
        <translation>Salva o local como marcador em um arquivo</translation>
    </message>
    <message>
        <source>&amp;Export as KML…</source>
        <translation>&amp;Exportar como KML…</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nome:</translation>
    </message>
    <message>
        <source>Select a picture, or drop one here</source>
        <translation>Selecione uma foto ou solte-a aqui</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Tamanho:</translation>
    </message>
    <message>
        <source>Modified:</source>
        <translation>Modificado:</translation>
    </message>
    <message>
        <source>Created:</source>
        <translation>Criado:</translation>
    </message>
    <message>
        <source>Coordinate:</source>
        <translation>Coordenadas:</translation>
    </message>
    <message>
        <source>Altitude:</source>
        <translation>Altitude:</translation>
    </message>
    <message>
        <source>Direction:</source>
        <translation>Direção:</translation>
    </message>
    <message>
        <source>City:</source>
        <translation>Cidade:</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>Estado:</translation>
    </message>
    <message>
        <source>Country:</source>
        <translation>País:</translation>
    </message>
    <message>
        <source>Caption:</source>
        <translation>Legenda:</translation>
    </message>
    <message>
        <source>Always shows the picture selected in the file manager</source>
        <translation>Mostra sempre a foto selecionada no gerenciador de arquivos</translation>
    </message>
    <message>
        <source>Follow the &amp;selection in the file manager</source>
        <translation>Acompanhar a &amp;seleção do gerenciador de arquivos</translation>
    </message>
    <message>
        <source>&amp;Picture</source>
        <translation>&amp;Foto</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Ajuda</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Abrir…</translation>
    </message>
    <message>
        <source>Open in &amp;Map Service</source>
        <translation>Abrir em um serviço de &amp;mapas</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>&amp;Fechar janela</translation>
    </message>
    <message>
        <source>&amp;Quit Pinorama</source>
        <translation>&amp;Sair do Pinorama</translation>
    </message>
    <message>
        <source>Pinorama &amp;Home Page</source>
        <translation>Página &amp;web do Pinorama</translation>
    </message>
    <message>
        <source>&amp;Donate…</source>
        <translation>&amp;Doar…</translation>
    </message>
    <message>
        <source>&amp;About Pinorama</source>
        <translation>&amp;Sobre o Pinorama</translation>
    </message>
    <message>
        <source>Cop&amp;y Coordinate</source>
        <translation>&amp;Copiar coordenadas</translation>
    </message>
    <message>
        <source>Copy as &amp;Decimal Degrees</source>
        <translation>Copiar em graus &amp;decimais</translation>
    </message>
    <message>
        <source>Pinorama &amp;Manual</source>
        <translation>&amp;Manual do Pinorama</translation>
    </message>
    <message>
        <source>Place</source>
        <extracomment>What a screen reader says before the place in words.</extracomment>
        <translation>Lugar</translation>
    </message>
    <message>
        <source>A click shows more of the surroundings, or less</source>
        <extracomment>Of the small map.</extracomment>
        <translation>Um clique mostra mais ou menos dos arredores</translation>
    </message>
    <message>
        <source>&amp;Read More Kinds of Files</source>
        <translation>Ler mais &amp;tipos de arquivos</translation>
    </message>
    <message>
        <source>Taken:</source>
        <extracomment>The time at which the picture was taken.</extracomment>
        <translation>Tirada:</translation>
    </message>
</context>
<context>
    <name>pinorama::Notice</name>
    <message>
        <source>&amp;Dismiss</source>
        <translation>&amp;Ocultar</translation>
    </message>
</context>
<context>
    <name>pinorama::PathIntake</name>
    <message>
        <source>Open Picture</source>
        <translation>Abrir foto</translation>
    </message>
</context>
<context>
    <name>pinorama::ReadingNotice</name>
    <message>
        <source>Still reading %1...</source>
        <translation>Ainda lendo %1...</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>Não foi possível ler %1.</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <translation>%1 não responde.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 could not be read.</source>
        <translation>Não foi possível ler o arquivo XMP ao lado de %1.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 does not answer.</source>
        <translation>O arquivo XMP ao lado de %1 não responde.</translation>
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
        <source>%1 is no file that can be read.</source>
        <extracomment>A pipe or a device</extracomment>
        <translation>%1 não é um arquivo que possa ser lido.</translation>
    </message>
    <message>
        <source>Files of this type are not read: JPEG and the raw files of cameras are.</source>
        <translation>Arquivos deste tipo não são lidos: apenas JPEG e os arquivos RAW das câmeras.</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <translation>Não há nenhum arquivo %1.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1.</source>
        <translation>Você não tem permissão para ler %1.</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2.</source>
        <extracomment>%2 is the system&apos;s reason, such as &quot;Input/output error&quot;</extracomment>
        <translation>Não é possível abrir %1: %2.</translation>
    </message>
    <message>
        <source>This picture does not say where it was taken.</source>
        <translation>Esta foto não informa onde foi tirada.</translation>
    </message>
    <message>
        <source>Several files are selected; the window shows one at a time.</source>
        <translation>Há vários arquivos selecionados; a janela mostra um de cada vez.</translation>
    </message>
</context>
<context>
    <name>pinorama::MoreKinds</name>
    <message>
        <source>From Exif</source>
        <translation>Do Exif</translation>
    </message>
    <message>
        <source>From IPTC</source>
        <translation>Do IPTC</translation>
    </message>
    <message>
        <source>From XMP in the file</source>
        <translation>Do XMP no arquivo</translation>
    </message>
    <message>
        <source>From the video</source>
        <translation>Do vídeo</translation>
    </message>
    <message>
        <source>From the XMP file beside it</source>
        <translation>Do arquivo XMP ao lado</translation>
    </message>
    <message>
        <source>Read Them</source>
        <translation>Ler</translation>
    </message>
    <message>
        <source>%1 pictures can be read, too.</source>
        <translation>Fotos %1 também podem ser lidas.</translation>
    </message>
    <message>
        <source>%1 videos can be read, too.</source>
        <translation>Vídeos %1 também podem ser lidos.</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyModel</name>
    <message>
        <source>same place</source>
        <translation>mesmo lugar</translation>
    </message>
    <message>
        <source>%1 m %2</source>
        <extracomment>%1 is a distance, %2 a point of the compass: 350 m NE</extracomment>
        <translation>%1&#xa0;m %2</translation>
    </message>
    <message>
        <source>%1 km %2</source>
        <extracomment>%1 is a distance, %2 a point of the compass: 1.2 km NE</extracomment>
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
        <extracomment>Above the pictures that were found; %2 is the name of a file</extracomment>
        <translation>A até %1&#xa0;m de %2</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Pesquisando...</translation>
    </message>
    <message>
        <source>Searching... Pictures found so far: %1</source>
        <translation>Pesquisando... Fotos encontradas até agora: %1</translation>
    </message>
    <message>
        <source>Stopped. Pictures found until then: %1</source>
        <translation>Parado. Fotos encontradas até então: %1</translation>
    </message>
    <message>
        <source>The search ended too early. Pictures found until then: %1</source>
        <translation>A pesquisa terminou antes da hora. Fotos encontradas até então: %1</translation>
    </message>
    <message>
        <source>Pictures cannot be searched: the program pinorama-search does not start.</source>
        <translation>Não é possível pesquisar fotos: o programa pinorama-search não inicia.</translation>
    </message>
    <message>
        <source>Pictures found: %1. The nearest %2 are shown.</source>
        <translation>Fotos encontradas: %1. São mostradas as %2 mais próximas.</translation>
    </message>
    <message>
        <source>Pictures found: %1</source>
        <translation>Fotos encontradas: %1</translation>
    </message>
    <message>
        <source>No other picture within %1 m was found in these folders:
%2</source>
        <extracomment>%2 is a list of folders</extracomment>
        <translation>Nenhuma outra foto a até %1&#xa0;m foi encontrada nestas pastas:
%2</translation>
    </message>
    <message>
        <source>Open &amp;With...</source>
        <extracomment>Context menu: has the user choose the program</extracomment>
        <translation>Abrir &amp;com...</translation>
    </message>
</context>
<context>
    <name>pinorama::PlaceActions</name>
    <message>
        <source>The globe program cannot be started.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>Não é possível iniciar o globo virtual.</translation>
    </message>
    <message>
        <source>Needs Marble, Google Earth or another program that opens KML files</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Requer o Marble, o Google Earth ou outro programa que abra arquivos KML</translation>
    </message>
    <message>
        <source>Without Skallion, pictures nearby are looked for in the folders around this one</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Sem o Skallion, as imagens próximas são procuradas nas pastas ao redor</translation>
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
        <translation>Nenhum programa abre arquivos KML. O Marble e o Google Earth abrem.</translation>
    </message>
    <message>
        <source>No program opens addresses that begin with %1:.</source>
        <extracomment>%1 is the beginning of an address, such as &quot;om&quot;</extracomment>
        <translation>Nenhum programa abre endereços que começam com %1:.</translation>
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
