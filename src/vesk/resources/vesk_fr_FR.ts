<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Vesk</source>
        <translation>À propos de Vesk</translation>
    </message>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>Un petit éditeur de photos qui fusionne des séries d’expositions.</translation>
    </message>
    <message>
        <source>Free software under the MIT licence. Built on Qt %1, LibRaw, libexif and OpenCL.</source>
        <translation>Logiciel libre sous licence MIT. Construit avec Qt %1, LibRaw, libexif et OpenCL.</translation>
    </message>
</context>
<context>
    <name>Document</name>
    <message>
        <source>Background</source>
        <translation>Arrière-plan</translation>
    </message>
</context>
<context>
    <name>DocumentSaver</name>
    <message>
        <source>Unsaved Changes</source>
        <translation>Modifications non enregistrées</translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <translation>Enregistrer les modifications de «&#xa0;%1&#xa0;»&#xa0;?</translation>
    </message>
    <message>
        <source>If you do not save them, they will be lost.</source>
        <translation>Si vous ne les enregistrez pas, elles seront perdues.</translation>
    </message>
    <message>
        <source>no layer is visible</source>
        <translation>aucun calque n’est visible</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>Échec de l’enregistrement</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2.</source>
        <translation>Impossible d’enregistrer «&#xa0;%1&#xa0;»&#xa0;: %2.</translation>
    </message>
    <message>
        <source>The picture is still open, with all its changes. You can save it elsewhere.</source>
        <translation>L’image est toujours ouverte, avec toutes ses modifications. Vous pouvez l’enregistrer ailleurs.</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Enregistrer &amp;sous…</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>mémoire insuffisante</translation>
    </message>
    <message>
        <source>Show a layer in the list of layers, then save again.</source>
        <translation>Affichez un calque dans la liste des calques, puis enregistrez à nouveau.</translation>
    </message>
</context>
<context>
    <name>DocumentTabBar</name>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
    <message>
        <source>Close &amp;Others</source>
        <translation>Fermer les &amp;autres</translation>
    </message>
</context>
<context>
    <name>DocumentTabs</name>
    <message>
        <source>Untitled</source>
        <translation>Sans titre</translation>
    </message>
    <message>
        <source>%1 •</source>
        <extracomment>A document with unsaved changes; %1 is its name.</extracomment>
        <translation>%1 •</translation>
    </message>
    <message>
        <source>All open documents</source>
        <translation>Tous les documents ouverts</translation>
    </message>
</context>
<context>
    <name>EditorActions</name>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Ouvrir…</translation>
    </message>
    <message>
        <source>Open &amp;Folder…</source>
        <translation>Ouvrir un &amp;dossier…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Zoom a&amp;vant</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Zoom a&amp;rrière</translation>
    </message>
    <message>
        <source>&amp;Fit to Window</source>
        <translation>A&amp;juster à la fenêtre</translation>
    </message>
    <message>
        <source>&amp;Actual Size (100 %)</source>
        <translation>&amp;Taille réelle (100&#xa0;%)</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Ajuster</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100&#xa0;%</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>&amp;Plein écran</translation>
    </message>
    <message>
        <source>&amp;Next Document</source>
        <translation>Document &amp;suivant</translation>
    </message>
    <message>
        <source>&amp;Previous Document</source>
        <translation>Document précéde&amp;nt</translation>
    </message>
    <message>
        <source>&amp;Merge to HDR…</source>
        <translation>&amp;Fusion HDR…</translation>
    </message>
    <message>
        <source>Merge pictures of one scene taken at different exposures</source>
        <translation>Fusionner des images d’une même scène prises avec des expositions différentes</translation>
    </message>
    <message>
        <source>&amp;About Vesk</source>
        <translation>À &amp;propos de Vesk</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <extracomment>The tip of a button: the command, and the keys that do the same.</extracomment>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>EditorStatusBar</name>
    <message>
        <source>%1 × %2</source>
        <extracomment>Width and height in pixels.</extracomment>
        <translation>%1 × %2</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>%1, %2   R %3 G %4 B %5</source>
        <extracomment>Position in pixels, and the levels of red, green and blue.</extracomment>
        <translation>%1, %2   R %3 V %4 B %5</translation>
    </message>
    <message>
        <source>Opening %1…</source>
        <translation>Ouverture de %1…</translation>
    </message>
    <message>
        <source>Opening %1 (%2 of %3)…</source>
        <translation>Ouverture de %1 (%2 sur %3)…</translation>
    </message>
</context>
<context>
    <name>FilmStrip</name>
    <message>
        <source>No pictures in this folder</source>
        <translation>Aucune image dans ce dossier</translation>
    </message>
</context>
<context>
    <name>HdrCommand</name>
    <message>
        <source>Merge to HDR</source>
        <translation>Fusion HDR</translation>
    </message>
    <message>
        <source>%1 pictures are selected, but at most %2 can be merged.</source>
        <translation>%1 images sont sélectionnées, mais %2 au plus peuvent être fusionnées.</translation>
    </message>
    <message>
        <source>Only these will be taken: %1</source>
        <translation>Seules celles-ci seront prises : %1</translation>
    </message>
</context>
<context>
    <name>HistogramDock</name>
    <message>
        <source>Histogram</source>
        <translation>Histogramme</translation>
    </message>
</context>
<context>
    <name>JpegQualityDialog</name>
    <message>
        <source>JPEG Quality</source>
        <translation>Qualité JPEG</translation>
    </message>
    <message>
        <source>&amp;Quality:</source>
        <translation>&amp;Qualité&#xa0;:</translation>
    </message>
    <message>
        <source>Low values give small files, high ones keep more detail. From about 95 on, losses are hard to see.</source>
        <translation>Les valeurs basses donnent de petits fichiers, les valeurs élevées gardent plus de détails. À partir de 95 environ, les pertes se voient à peine.</translation>
    </message>
    <message>
        <source>JPEG files cannot hold transparency: what is transparent becomes white.</source>
        <translation>Les fichiers JPEG ne gèrent pas la transparence&#xa0;: ce qui est transparent devient blanc.</translation>
    </message>
</context>
<context>
    <name>LanguageMenu</name>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Langue</translation>
    </message>
</context>
<context>
    <name>LayerDock</name>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>%1 — %2</source>
        <extracomment>A layer and its opacity in percent.</extracomment>
        <translation>%1 — %2</translation>
    </message>
    <message>
        <source>Tick to show the layer</source>
        <translation>Cochez pour afficher le calque</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Calques</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Film Strip</source>
        <translation>Bande de vignettes</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Outils</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>&amp;Paramètres</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Ai&amp;de</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Langue</translation>
    </message>
    <message>
        <source>Vesk will speak this language when it is started again: %1</source>
        <translation>Vesk utilisera cette langue à partir du prochain démarrage&#xa0;: %1</translation>
    </message>
    <message>
        <source>Tool Bar</source>
        <translation>Barre d’outils</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>Enregistré&#xa0;: %1</translation>
    </message>
    <message>
        <source>Film Strip — %1</source>
        <translation>Bande de vignettes — %1</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Tous les fichiers</translation>
    </message>
    <message>
        <source>Open Pictures</source>
        <translation>Ouvrir des images</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ouvrir un dossier</translation>
    </message>
    <message>
        <source>%1[*] — Vesk</source>
        <translation>%1[*] — Vesk</translation>
    </message>
</context>
<context>
    <name>OpenFailureBox</name>
    <message>
        <source>“%1”: %2</source>
        <extracomment>A file, and why it could not be opened.</extracomment>
        <translation>«&#xa0;%1&#xa0;»&#xa0;: %2</translation>
    </message>
    <message>
        <source>This file could not be opened:</source>
        <translation>Impossible d’ouvrir ce fichier&#xa0;:</translation>
    </message>
    <message numerus="yes">
        <source>%n files could not be opened:</source>
        <translation>
            <numerusform>Impossible d’ouvrir %n fichier&#xa0;:</numerusform>
            <numerusform>Impossible d’ouvrir %n fichiers&#xa0;:</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Opened</source>
        <translation>Échec de l’ouverture</translation>
    </message>
</context>
<context>
    <name>OutputFile</name>
    <message>
        <source>Permission denied</source>
        <translation>permission refusée</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>le quota de disque est dépassé</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>il n’y a plus d’espace sur le périphérique</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>le système de fichiers est en lecture seule</translation>
    </message>
    <message>
        <source>there is no such folder</source>
        <translation>ce dossier n’existe pas</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>est un dossier</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>n’est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>the file exists already</source>
        <translation>le fichier existe déjà</translation>
    </message>
</context>
<context>
    <name>PictureDecoder</name>
    <message>
        <source>no such file</source>
        <translation>ce fichier n’existe pas</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>est un dossier</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>n’est pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>no permission to read it</source>
        <translation>vous n’avez pas le droit de le lire</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>ne peut pas être lu</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>le fichier est vide</translation>
    </message>
    <message>
        <source>not a picture</source>
        <translation>n’est pas une image</translation>
    </message>
    <message>
        <source>the picture is truncated or damaged</source>
        <translation>l’image est tronquée ou endommagée</translation>
    </message>
    <message>
        <source>the picture is too large (%1 x %2 pixels)</source>
        <translation>l’image est trop grande (%1 × %2 pixels)</translation>
    </message>
    <message>
        <source>not enough memory for %1 x %2 pixels</source>
        <translation>mémoire insuffisante pour %1 × %2 pixels</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>mémoire insuffisante</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>annulé</translation>
    </message>
    <message>
        <source>%1, a kind of picture that this build does not read</source>
        <extracomment>%1 is the name of a file format, such as HEIC</extracomment>
        <translation>%1, un type d’image que cette version ne lit pas</translation>
    </message>
    <message>
        <source>the camera raw file cannot be converted: %1</source>
        <translation>impossible de convertir le fichier RAW de l’appareil photo : %1</translation>
    </message>
</context>
<context>
    <name>PictureEncoder</name>
    <message>
        <source>JPEG files hold at most %1 pixels in a row or column</source>
        <translation>les fichiers JPEG contiennent au plus %1 pixels par ligne ou colonne</translation>
    </message>
    <message>
        <source>the JPEG file could not be written</source>
        <translation>le fichier JPEG n’a pas pu être écrit</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>mémoire insuffisante</translation>
    </message>
    <message>
        <source>the PNG file could not be written</source>
        <translation>le fichier PNG n’a pas pu être écrit</translation>
    </message>
    <message>
        <source>the TIFF file could not be written</source>
        <translation>le fichier TIFF n’a pas pu être écrit</translation>
    </message>
</context>
<context>
    <name>RecentFilesMenu</name>
    <message>
        <source>Open &amp;Recent</source>
        <translation>Fichiers &amp;récents</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>&amp;Vider la liste</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>JPEG picture</source>
        <translation>Image JPEG</translation>
    </message>
    <message>
        <source>PNG picture</source>
        <translation>Image PNG</translation>
    </message>
    <message>
        <source>TIFF picture</source>
        <translation>Image TIFF</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Enregistrer sous</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Drop photographs or a folder here</source>
        <translation>Déposez ici des photos ou un dossier</translation>
    </message>
</context>
<context>
    <name>VeskActionManager</name>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Enregistrer</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Enregistrer &amp;sous…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Fermer</translation>
    </message>
</context>
<context>
    <name>VeskProgressIndicator</name>
    <message>
        <source>Please wait</source>
        <translation>Veuillez patienter</translation>
    </message>
</context>
<context>
    <name>VeskRaw</name>
    <message>
        <source>Unspecified error</source>
        <translation>erreur non précisée</translation>
    </message>
    <message>
        <source>Unsupported file format or not RAW file</source>
        <translation>format non pris en charge ou n’est pas un fichier RAW</translation>
    </message>
    <message>
        <source>Unsufficient memory</source>
        <translation>mémoire insuffisante</translation>
    </message>
    <message>
        <source>Corrupted data or unexpected EOF</source>
        <translation>données endommagées ou fin de fichier inattendue</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>erreur d’entrée/sortie</translation>
    </message>
    <message>
        <source>Cancelled by user callback</source>
        <translation>annulé</translation>
    </message>
    <message>
        <source>Image too big for processing</source>
        <translation>l’image est trop grande</translation>
    </message>
    <message>
        <source>The picture has more pixels than allowed</source>
        <translation>l’image a plus de pixels que la limite</translation>
    </message>
    <message>
        <source>The file is damaged</source>
        <translation>le fichier est endommagé</translation>
    </message>
    <message>
        <source>Not enough memory</source>
        <translation>mémoire insuffisante</translation>
    </message>
    <message>
        <source>The raw library failed</source>
        <translation>la bibliothèque RAW a échoué</translation>
    </message>
    <message>
        <source>The raw converter cannot be started</source>
        <translation>le convertisseur RAW ne peut pas être démarré</translation>
    </message>
    <message>
        <source>The raw converter ended before it was done</source>
        <translation>le convertisseur RAW s’est arrêté avant la fin</translation>
    </message>
    <message>
        <source>The conversion took too long</source>
        <translation>la conversion a duré trop longtemps</translation>
    </message>
</context>
<context>
    <name>VeskTitleWidget</name>
    <message>
        <source>Minimize</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Agrandir</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>Un petit éditeur de photos qui fusionne des séries d’expositions.</translation>
    </message>
    <message>
        <source>Pictures to open, or a folder to show.</source>
        <translation>Images à ouvrir, ou dossier à afficher.</translation>
    </message>
</context>
</TS>
