<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Pinorama</source>
        <translation>À propos de Pinorama</translation>
    </message>
    <message>
        <source>Shows where the picture selected in the file manager was taken.</source>
        <translation>Indique où a été prise la photo sélectionnée dans le gestionnaire de fichiers.</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later. It comes with no warranty.</source>
        <translation>Logiciel libre sous licence publique générale GNU, version 3 ou ultérieure. Fourni sans aucune garantie.</translation>
    </message>
    <message>
        <source>Made with these libraries:</source>
        <translation>Bibliothèques utilisées&#xa0;:</translation>
    </message>
    <message>
        <source>Places and map are made from:</source>
        <translation>Sources des lieux et de la carte&#xa0;:</translation>
    </message>
</context>
<context>
    <name>pinorama::AccessibilityNotice</name>
    <message>
        <source>S&amp;witch On</source>
        <translation>Acti&amp;ver</translation>
    </message>
    <message>
        <source>Pinorama can follow the selection in %1 once accessibility is on. This is a permanent setting of your desktop; restart the file manager after switching it on.</source>
        <translation>La sélection dans %1 peut être suivie une fois l’accessibilité activée. C’est un réglage permanent du bureau ; redémarrez ensuite le gestionnaire de fichiers.</translation>
    </message>
    <message>
        <source>Accessibility is on. Restart %1 or log in again; Pinorama then follows its selection.</source>
        <translation>L’accessibilité est activée. Redémarrez %1, ou reconnectez-vous, pour suivre sa sélection.</translation>
    </message>
    <message>
        <source>Accessibility could not be switched on. The manual explains how to do it by hand.</source>
        <translation>Impossible d’activer l’accessibilité. Le manuel explique comment le faire à la main.</translation>
    </message>
</context>
<context>
    <name>pinorama::AppController</name>
    <message>
        <source>Files cannot be opened: the program pinorama-opener does not start.</source>
        <translation>Impossible d’ouvrir les fichiers&#xa0;: le programme pinorama-opener ne démarre pas.</translation>
    </message>
    <message>
        <source>Pictures cannot be read: the program pinorama-reader does not start.</source>
        <translation>Impossible de lire les photos&#xa0;: le programme pinorama-reader ne démarre pas.</translation>
    </message>
    <message>
        <source>Re&amp;load</source>
        <extracomment>Reads the file again that is shown</extracomment>
        <translation>Rec&amp;harger</translation>
    </message>
</context>
<context>
    <name>pinorama::CopyMenu</name>
    <message>
        <source>Copy &amp;It As</source>
        <extracomment>The menu of the forms in which a place can be copied</extracomment>
        <translation>Copier e&amp;n tant que</translation>
    </message>
    <message>
        <source>As Shown</source>
        <translation>Tel qu’affiché</translation>
    </message>
    <message>
        <source>Decimal Degrees</source>
        <translation>Degrés décimaux</translation>
    </message>
    <message>
        <source>Degrees and Decimal Minutes</source>
        <translation>Degrés et minutes décimales</translation>
    </message>
    <message>
        <source>geo: Address</source>
        <extracomment>An address that begins with &quot;geo:&quot;, which map programs take</extracomment>
        <translation>Adresse « geo: »</translation>
    </message>
    <message>
        <source>Place in Words</source>
        <extracomment>Copies &quot;Near Ushuaia, Argentina&quot;</extracomment>
        <translation>Lieu en mots</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <extracomment>%1 is a map service, such as OpenStreetMap</extracomment>
        <translation>Lien vers %1</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportDialog</name>
    <message>
        <source>KML files (*.kml)</source>
        <translation>Fichiers KML (*.kml)</translation>
    </message>
</context>
<context>
    <name>pinorama::ExportNotice</name>
    <message>
        <source>the disk is full.</source>
        <translation>le disque est plein.</translation>
    </message>
    <message>
        <source>writing there is not allowed.</source>
        <translation>l’écriture n’y est pas autorisée.</translation>
    </message>
    <message>
        <source>there is no such folder.</source>
        <translation>ce dossier n’existe pas.</translation>
    </message>
    <message>
        <source>a folder has that name.</source>
        <translation>un dossier porte ce nom.</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>Impossible d’écrire %1 : %2</translation>
    </message>
    <message>
        <source>%1 was saved.</source>
        <extracomment>%1 is the name of a file that was written</extracomment>
        <translation>%1 a été enregistré.</translation>
    </message>
    <message>
        <source>Show in Fo&amp;lder</source>
        <extracomment>A button: shows the file in the file manager</extracomment>
        <translation>Voir dans le &amp;dossier</translation>
    </message>
    <message>
        <source>the disk does not answer.</source>
        <translation>le disque ne répond pas.</translation>
    </message>
</context>
<context>
    <name>pinorama::MainWindow</name>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>The picture has a location</source>
        <translation>La photo indique où elle a été prise</translation>
    </message>
    <message>
        <source>Opens the location in a web map</source>
        <translation>Ouvre le lieu dans une carte en ligne</translation>
    </message>
    <message>
        <source>Map Services</source>
        <translation>Services de cartes</translation>
    </message>
    <message>
        <source>Flies the globe program to the location</source>
        <translation>Survole le lieu dans le globe virtuel</translation>
    </message>
    <message>
        <source>Show in &amp;Globe</source>
        <translation>Voir sur le &amp;globe</translation>
    </message>
    <message>
        <source>Finds all catalogued pictures taken within 2000 m</source>
        <translation>Trouve toutes les photos cataloguées prises à moins de 2000&#xa0;m</translation>
    </message>
    <message>
        <source>&amp;Find in Skallion</source>
        <translation>&amp;Chercher dans Skallion</translation>
    </message>
    <message>
        <source>Writes the location as a placemark file</source>
        <translation>Enregistre le lieu comme repère dans un fichier</translation>
    </message>
    <message>
        <source>&amp;Export as KML…</source>
        <translation>&amp;Exporter en KML…</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nom&#xa0;:</translation>
    </message>
    <message>
        <source>Select a picture, or drop one here</source>
        <translation>Choisissez ou déposez une photo ici</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Taille&#xa0;:</translation>
    </message>
    <message>
        <source>Modified:</source>
        <translation>Modifié&#xa0;:</translation>
    </message>
    <message>
        <source>Created:</source>
        <translation>Créé&#xa0;:</translation>
    </message>
    <message>
        <source>Coordinate:</source>
        <translation>Coordonnées&#xa0;:</translation>
    </message>
    <message>
        <source>Altitude:</source>
        <translation>Altitude&#xa0;:</translation>
    </message>
    <message>
        <source>Direction:</source>
        <translation>Direction&#xa0;:</translation>
    </message>
    <message>
        <source>City:</source>
        <translation>Ville&#xa0;:</translation>
    </message>
    <message>
        <source>State:</source>
        <translation>Région&#xa0;:</translation>
    </message>
    <message>
        <source>Country:</source>
        <translation>Pays&#xa0;:</translation>
    </message>
    <message>
        <source>Caption:</source>
        <translation>Légende&#xa0;:</translation>
    </message>
    <message>
        <source>Always shows the picture selected in the file manager</source>
        <translation>Affiche toujours la photo sélectionnée dans le gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>Follow the &amp;selection in the file manager</source>
        <translation>Suivre la &amp;sélection du gestionnaire de fichiers</translation>
    </message>
    <message>
        <source>&amp;Picture</source>
        <translation>&amp;Photo</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Ouvrir…</translation>
    </message>
    <message>
        <source>Open in &amp;Map Service</source>
        <translation>Ouvrir dans un service de ca&amp;rtes</translation>
    </message>
    <message>
        <source>&amp;Close Window</source>
        <translation>&amp;Fermer la fenêtre</translation>
    </message>
    <message>
        <source>&amp;Quit Pinorama</source>
        <translation>&amp;Quitter Pinorama</translation>
    </message>
    <message>
        <source>Pinorama &amp;Home Page</source>
        <translation>Site &amp;web de Pinorama</translation>
    </message>
    <message>
        <source>&amp;Donate…</source>
        <translation>&amp;Faire un don…</translation>
    </message>
    <message>
        <source>&amp;About Pinorama</source>
        <translation>À &amp;propos de Pinorama</translation>
    </message>
    <message>
        <source>Cop&amp;y Coordinate</source>
        <translation>Cop&amp;ier les coordonnées</translation>
    </message>
    <message>
        <source>Copy as &amp;Decimal Degrees</source>
        <translation>Copier en &amp;degrés décimaux</translation>
    </message>
    <message>
        <source>Pinorama &amp;Manual</source>
        <translation>&amp;Manuel de Pinorama</translation>
    </message>
    <message>
        <source>Place</source>
        <extracomment>What a screen reader says before the place in words.</extracomment>
        <translation>Lieu</translation>
    </message>
    <message>
        <source>A click shows more of the surroundings, or less</source>
        <extracomment>Of the small map.</extracomment>
        <translation>Un clic montre plus ou moins des environs</translation>
    </message>
    <message>
        <source>&amp;Read More Kinds of Files</source>
        <translation>Lire d’autres &amp;types de fichiers</translation>
    </message>
    <message>
        <source>Taken:</source>
        <extracomment>The time at which the picture was taken.</extracomment>
        <translation>Prise&#xa0;:</translation>
    </message>
</context>
<context>
    <name>pinorama::Notice</name>
    <message>
        <source>&amp;Dismiss</source>
        <translation>&amp;Masquer</translation>
    </message>
</context>
<context>
    <name>pinorama::PathIntake</name>
    <message>
        <source>Open Picture</source>
        <translation>Ouvrir une photo</translation>
    </message>
</context>
<context>
    <name>pinorama::ReadingNotice</name>
    <message>
        <source>Still reading %1...</source>
        <translation>Lecture de %1 toujours en cours...</translation>
    </message>
    <message>
        <source>%1 could not be read.</source>
        <translation>%1 n’a pas pu être lu.</translation>
    </message>
    <message>
        <source>%1 does not answer.</source>
        <translation>%1 ne répond pas.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 could not be read.</source>
        <translation>Le fichier XMP voisin de %1 n’a pas pu être lu.</translation>
    </message>
    <message>
        <source>The XMP file beside %1 does not answer.</source>
        <translation>Le fichier XMP voisin de %1 ne répond pas.</translation>
    </message>
</context>
<context>
    <name>pinorama::PictureWords</name>
    <message>
        <source>%1 is a folder.</source>
        <extracomment>The foot of the window; so are the others. %1 is the name of the file that is shown</extracomment>
        <translation>%1 est un dossier.</translation>
    </message>
    <message>
        <source>%1 is no file that can be read.</source>
        <extracomment>A pipe or a device</extracomment>
        <translation>%1 n’est pas un fichier lisible.</translation>
    </message>
    <message>
        <source>Files of this type are not read: JPEG and the raw files of cameras are.</source>
        <translation>Les fichiers de ce type ne sont pas lus : seuls le sont JPEG et les fichiers bruts des appareils photo.</translation>
    </message>
    <message>
        <source>There is no file %1.</source>
        <translation>Il n’y a pas de fichier %1.</translation>
    </message>
    <message>
        <source>You are not allowed to read %1.</source>
        <translation>Vous n’avez pas le droit de lire %1.</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2.</source>
        <extracomment>%2 is the system&apos;s reason, such as &quot;Input/output error&quot;</extracomment>
        <translation>Impossible d’ouvrir %1 : %2.</translation>
    </message>
    <message>
        <source>This picture does not say where it was taken.</source>
        <translation>Cette photo n’indique pas où elle a été prise.</translation>
    </message>
    <message>
        <source>Several files are selected; the window shows one at a time.</source>
        <translation>Plusieurs fichiers sont sélectionnés ; la fenêtre n’en montre qu’un à la fois.</translation>
    </message>
</context>
<context>
    <name>pinorama::MoreKinds</name>
    <message>
        <source>From Exif</source>
        <translation>D’après Exif</translation>
    </message>
    <message>
        <source>From IPTC</source>
        <translation>D’après IPTC</translation>
    </message>
    <message>
        <source>From XMP in the file</source>
        <translation>D’après XMP dans le fichier</translation>
    </message>
    <message>
        <source>From the video</source>
        <translation>D’après la vidéo</translation>
    </message>
    <message>
        <source>From the XMP file beside it</source>
        <translation>D’après le fichier XMP voisin</translation>
    </message>
    <message>
        <source>Read Them</source>
        <translation>Les lire</translation>
    </message>
    <message>
        <source>%1 pictures can be read, too.</source>
        <translation>Les photos %1 peuvent aussi être lues.</translation>
    </message>
    <message>
        <source>%1 videos can be read, too.</source>
        <translation>Les vidéos %1 peuvent aussi être lues.</translation>
    </message>
</context>
<context>
    <name>pinorama::NearbyModel</name>
    <message>
        <source>same place</source>
        <translation>même endroit</translation>
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
        <translation>&amp;Arrêter</translation>
    </message>
    <message>
        <source>Pictures Nearby</source>
        <extracomment>Title of the window</extracomment>
        <translation>Photos à proximité</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <extracomment>Context menu: opens the picture in the program for it</extracomment>
        <translation>&amp;Ouvrir</translation>
    </message>
    <message>
        <source>Within %1 m of %2</source>
        <extracomment>Above the pictures that were found; %2 is the name of a file</extracomment>
        <translation>À moins de %1&#xa0;m de %2</translation>
    </message>
    <message>
        <source>Searching...</source>
        <translation>Recherche en cours...</translation>
    </message>
    <message>
        <source>Searching... Pictures found so far: %1</source>
        <translation>Recherche en cours... Photos trouvées jusqu’ici&#xa0;: %1</translation>
    </message>
    <message>
        <source>Stopped. Pictures found until then: %1</source>
        <translation>Arrêté. Photos trouvées jusque-là&#xa0;: %1</translation>
    </message>
    <message>
        <source>The search ended too early. Pictures found until then: %1</source>
        <translation>La recherche s’est terminée trop tôt. Photos trouvées jusque-là&#xa0;: %1</translation>
    </message>
    <message>
        <source>Pictures cannot be searched: the program pinorama-search does not start.</source>
        <translation>Impossible de rechercher des photos&#xa0;: le programme pinorama-search ne démarre pas.</translation>
    </message>
    <message>
        <source>Pictures found: %1. The nearest %2 are shown.</source>
        <translation>Photos trouvées&#xa0;: %1. Les %2 plus proches sont affichées.</translation>
    </message>
    <message>
        <source>Pictures found: %1</source>
        <translation>Photos trouvées&#xa0;: %1</translation>
    </message>
    <message>
        <source>No other picture within %1 m was found in these folders:
%2</source>
        <extracomment>%2 is a list of folders</extracomment>
        <translation>Aucune autre photo à moins de %1&#xa0;m n’a été trouvée dans ces dossiers&#xa0;:
%2</translation>
    </message>
    <message>
        <source>Open &amp;With...</source>
        <extracomment>Context menu: has the user choose the program</extracomment>
        <translation>Ouvrir a&amp;vec...</translation>
    </message>
</context>
<context>
    <name>pinorama::PlaceActions</name>
    <message>
        <source>The globe program cannot be started.</source>
        <extracomment>The foot of the window</extracomment>
        <translation>Impossible de démarrer le globe virtuel.</translation>
    </message>
    <message>
        <source>Needs Marble, Google Earth or another program that opens KML files</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Nécessite Marble, Google Earth ou un autre programme qui ouvre les fichiers KML</translation>
    </message>
    <message>
        <source>Without Skallion, pictures nearby are looked for in the folders around this one</source>
        <extracomment>The second line of a tool tip</extracomment>
        <translation>Sans Skallion, les images proches sont cherchées dans les dossiers voisins</translation>
    </message>
</context>
<context>
    <name>pinorama::SayingOpener</name>
    <message>
        <source>No web browser is installed.</source>
        <extracomment>The foot of the window; so are the others</extracomment>
        <translation>Aucun navigateur web n’est installé.</translation>
    </message>
    <message>
        <source>No program opens geo: addresses. Marble and GNOME Maps do.</source>
        <extracomment>&quot;geo:&quot; is the beginning of an address; the names are those of programs</extracomment>
        <translation>Aucun programme n’ouvre les adresses geo:. Marble et GNOME Cartes le font.</translation>
    </message>
    <message>
        <source>No program opens KML files. Marble and Google Earth do.</source>
        <translation>Aucun programme n’ouvre les fichiers KML. Marble et Google Earth le font.</translation>
    </message>
    <message>
        <source>No program opens addresses that begin with %1:.</source>
        <extracomment>%1 is the beginning of an address, such as &quot;om&quot;</extracomment>
        <translation>Aucun programme n’ouvre les adresses qui commencent par %1:.</translation>
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
