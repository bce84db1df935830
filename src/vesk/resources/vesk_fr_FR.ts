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
    <name>AdjustDock</name>
    <message>
        <source>Adjust</source>
        <translation>Ajuster</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>Exposition :</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>Contraste :</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>Hautes lumières :</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>Ombres :</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>Point noir :</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>Point blanc :</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>Saturation :</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
    <message>
        <source>Propose a look from how light and dark the picture is</source>
        <translation>Proposer des réglages d’après les clartés de l’image</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Réinitialiser</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Comparer</translation>
    </message>
    <message>
        <source>Hold to see the picture without these changes</source>
        <translation>Maintenir pour voir l’image sans ces modifications</translation>
    </message>
</context>
<context>
    <name>BatchWindow</name>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Démarrer</translation>
    </message>
    <message>
        <source>Sto&amp;p</source>
        <translation>Arrêt&amp;er</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Merge Brackets</source>
        <translation>Fusionner les séries</translation>
    </message>
    <message>
        <source>&amp;Folder with shots:</source>
        <translation>Dossier des &amp;prises :</translation>
    </message>
    <message>
        <source>Cho&amp;ose…</source>
        <translation>C&amp;hoisir…</translation>
    </message>
    <message>
        <source>Folder for res&amp;ults:</source>
        <translation>Dossier des rés&amp;ultats :</translation>
    </message>
    <message>
        <source>C&amp;hoose…</source>
        <translation>Ch&amp;oisir…</translation>
    </message>
    <message>
        <source>For&amp;mat:</source>
        <translation>&amp;Format :</translation>
    </message>
    <message>
        <source>Looking for brackets…</source>
        <translation>Recherche des séries…</translation>
    </message>
    <message>
        <source>%1 brackets to merge</source>
        <translation>Séries à fusionner : %1</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pause</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message>
        <source>%1 merged, %2 done already, %3 failed, %4 stopped</source>
        <translation>%1 fusionnées, %2 déjà faites, %3 en échec, %4 arrêtées</translation>
    </message>
    <message>
        <source>Fi&amp;nd Again</source>
        <translation>Rec&amp;hercher à nouveau</translation>
    </message>
    <message>
        <source>Finds the brackets of the folder anew, without your changes</source>
        <translation>Recherche à nouveau les séries du dossier, sans vos modifications</translation>
    </message>
    <message>
        <source>%1 of %2, about %3 left</source>
        <translation>%1 sur %2, encore %3 environ</translation>
    </message>
    <message>
        <source>Show Resu&amp;lts</source>
        <translation>Afficher les résu&amp;ltats</translation>
    </message>
    <message>
        <source>Go O&amp;n</source>
        <translation>Repre&amp;ndre</translation>
    </message>
    <message>
        <source>Pau&amp;se</source>
        <translation>Pau&amp;se</translation>
    </message>
</context>
<context>
    <name>BracketBatch</name>
    <message>
        <source>another file of this name is there</source>
        <translation>un autre fichier porte déjà ce nom</translation>
    </message>
    <message>
        <source>another bracket gets the same name</source>
        <translation>une autre série reçoit le même nom</translation>
    </message>
</context>
<context>
    <name>BracketTable</name>
    <message>
        <source>waiting</source>
        <translation>en attente</translation>
    </message>
    <message>
        <source>Merging…</source>
        <translation>Fusion…</translation>
    </message>
    <message>
        <source>merged</source>
        <translation>fusionnée</translation>
    </message>
    <message>
        <source>done already</source>
        <translation>déjà faite</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>échec</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>arrêtée</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 à %2</translation>
    </message>
    <message>
        <source>Bracket</source>
        <translation>Série</translation>
    </message>
    <message>
        <source>Shots</source>
        <translation>Prises</translation>
    </message>
    <message>
        <source>State</source>
        <translation>État</translation>
    </message>
    <message>
        <source>Brackets</source>
        <translation>Séries</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message>
        <source>&amp;Join</source>
        <translation>&amp;Réunir</translation>
    </message>
    <message>
        <source>Sp&amp;lit Here</source>
        <translation>&amp;Couper ici</translation>
    </message>
    <message>
        <source>Take Out or Put &amp;Back</source>
        <translation>R&amp;etirer ou remettre</translation>
    </message>
    <message>
        <source>Makes one bracket of the selected brackets and shots</source>
        <translation>Fait une seule série des séries et prises sélectionnées</translation>
    </message>
    <message>
        <source>Begins another bracket with the selected shot</source>
        <translation>Commence une autre série à la prise sélectionnée</translation>
    </message>
    <message>
        <source>In no bracket</source>
        <translation>Dans aucune série</translation>
    </message>
</context>
<context>
    <name>BrushBar</name>
    <message>
        <source>Brush</source>
        <translation>Pinceau</translation>
    </message>
    <message>
        <source>Paint over the preview which shot a part comes from (P)</source>
        <translation>Peindre sur l’aperçu de quelle prise vient une partie (P)</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Gomme</translation>
    </message>
    <message>
        <source>Erase what was painted (E, Alt, right button)</source>
        <translation>Effacer ce qui est peint (E, Alt, bouton droit)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Take the last stroke back (Ctrl+Z)</source>
        <translation>Annuler le dernier trait (Ctrl+Z)</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Vider</translation>
    </message>
    <message>
        <source>Take all strokes away</source>
        <translation>Supprimer tous les traits</translation>
    </message>
    <message>
        <source>Shot to paint with</source>
        <translation>Prise avec laquelle peindre</translation>
    </message>
    <message>
        <source>What is painted comes from this shot. Shift and a click take what moved there, whole; Ctrl moves the picture.</source>
        <translation>Ce qui est peint vient de cette prise. Maj et un clic prennent en entier ce qui a bougé là ; Ctrl déplace l’image.</translation>
    </message>
    <message>
        <source>Size of the brush</source>
        <translation>Taille du pinceau</translation>
    </message>
    <message>
        <source>Size of the brush ([ and ])</source>
        <translation>Taille du pinceau ([ et ])</translation>
    </message>
</context>
<context>
    <name>CropTool</name>
    <message>
        <source>Crop</source>
        <translation>Recadrer</translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation>Proportions</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Libres</translation>
    </message>
    <message>
        <source>As it is</source>
        <translation>Comme l’image</translation>
    </message>
    <message>
        <source>What all shots cover</source>
        <translation>Ce que couvrent toutes les vues</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>Document</name>
    <message>
        <source>Background</source>
        <translation>Arrière-plan</translation>
    </message>
    <message>
        <source>Show Layer</source>
        <translation>Afficher le calque</translation>
    </message>
    <message>
        <source>Hide Layer</source>
        <translation>Masquer le calque</translation>
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
    <message>
        <source>%1 documents have unsaved changes.</source>
        <translation>%1 documents ont des modifications non enregistrées.</translation>
    </message>
    <message>
        <source>&amp;Save All</source>
        <translation>&amp;Tout enregistrer</translation>
    </message>
    <message>
        <source>&amp;Discard All</source>
        <translation>&amp;Abandonner tout</translation>
    </message>
    <message>
        <source>“%1” has been changed by another program.</source>
        <translation>« %1 » a été modifié par un autre programme.</translation>
    </message>
    <message>
        <source>If you replace it, what was changed there is lost.</source>
        <translation>Si vous le remplacez, ces modifications seront perdues.</translation>
    </message>
    <message>
        <source>“%1” holds a gain map: bright screens show it brighter.</source>
        <translation>« %1 » contient une carte de gain : les écrans lumineux l’affichent plus clair.</translation>
    </message>
    <message>
        <source>Vesk cannot keep that. The file would look the same on all screens from now on.</source>
        <translation>Vesk ne peut pas la conserver. Le fichier aurait désormais le même aspect sur tous les écrans.</translation>
    </message>
    <message>
        <source>Replace the File?</source>
        <translation>Remplacer le fichier ?</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>&amp;Remplacer</translation>
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
    <message>
        <source>From the Other Side</source>
        <translation>De l’autre côté</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Édition</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <extracomment>%1 is what the user did last, such as &quot;Crop&quot;.</extracomment>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copier</translation>
    </message>
    <message>
        <source>&amp;Paste as Document</source>
        <translation>C&amp;oller comme document</translation>
    </message>
    <message>
        <source>&amp;Straighten…</source>
        <translation>Re&amp;dresser…</translation>
    </message>
    <message>
        <source>Rotate &amp;Left</source>
        <translation>Pivoter à &amp;gauche</translation>
    </message>
    <message>
        <source>Rotate Ri&amp;ght</source>
        <translation>Pivoter à droi&amp;te</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>&amp;Annuler : %1</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>&amp;Rétablir : %1</translation>
    </message>
    <message>
        <source>Pasted Picture</source>
        <extracomment>The name of a document from the clipboard.</extracomment>
        <translation>Image collée</translation>
    </message>
    <message>
        <source>Cr&amp;op…</source>
        <translation>R&amp;ecadrer…</translation>
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
    <message>
        <source>Merge &amp;Exposures…</source>
        <translation>Fusionner les &amp;expositions…</translation>
    </message>
    <message>
        <source>Align the selected shots and fuse them: preview, options, a new document</source>
        <translation>Aligner les prises sélectionnées et les fusionner : aperçu, options, nouveau document</translation>
    </message>
    <message>
        <source>Merge up to five shots by their weighted mean, in place of the document</source>
        <translation>Fusionner jusqu’à cinq prises par leur moyenne pondérée, à la place du document</translation>
    </message>
    <message>
        <source>Merge &amp;Brackets…</source>
        <translation>Fusio&amp;nner les séries…</translation>
    </message>
    <message>
        <source>Find the brackets of a folder and merge them all, as Merge Exposures does</source>
        <translation>Trouver les séries d’un dossier et les fusionner toutes, comme « Fusionner les expositions »</translation>
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
    <name>Edits</name>
    <message>
        <source>Crop</source>
        <translation>Recadrer</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Pivoter</translation>
    </message>
    <message>
        <source>Straighten</source>
        <translation>Redresser</translation>
    </message>
    <message>
        <source>Adjust</source>
        <translation>Ajuster</translation>
    </message>
</context>
<context>
    <name>ExposureMergeCommand</name>
    <message>
        <source>%1 merged</source>
        <extracomment>The name of a merged picture; %1 is that of the shot it was made from.</extracomment>
        <translation>%1 fusionnée</translation>
    </message>
</context>
<context>
    <name>ExposureTexts</name>
    <message>
        <source>1/%1 s</source>
        <extracomment>An exposure time in seconds.</extracomment>
        <translation>1/%1 s</translation>
    </message>
    <message>
        <source>%1 s</source>
        <extracomment>An exposure time in seconds.</extracomment>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 EV</source>
        <extracomment>Stops of exposure, with a sign.</extracomment>
        <translation>%1 IL</translation>
    </message>
</context>
<context>
    <name>FilmStrip</name>
    <message>
        <source>No pictures in this folder</source>
        <translation>Aucune image dans ce dossier</translation>
    </message>
    <message>
        <source>Film Strip</source>
        <translation>Bande de vignettes</translation>
    </message>
</context>
<context>
    <name>FilmStripActions</name>
    <message>
        <source>&amp;Next Bracket</source>
        <translation>Série &amp;suivante</translation>
    </message>
    <message>
        <source>&amp;Previous Bracket</source>
        <translation>Série &amp;précédente</translation>
    </message>
    <message>
        <source>Select &amp;All Pictures</source>
        <translation>&amp;Tout sélectionner</translation>
    </message>
    <message>
        <source>&amp;Hide Merged Results</source>
        <translation>&amp;Masquer les images fusionnées</translation>
    </message>
    <message>
        <source>&amp;Rating</source>
        <translation>N&amp;ote</translation>
    </message>
    <message>
        <source>&amp;Sort By</source>
        <translation>Tr&amp;ier par</translation>
    </message>
    <message>
        <source>The rating of “%1” could not be saved: %2.</source>
        <extracomment>%1 is the name of a picture, %2 the reason.</extracomment>
        <translation>La note de « %1 » n’a pas pu être enregistrée : %2.</translation>
    </message>
    <message>
        <source>No Stars</source>
        <translation>Aucune étoile</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Nom</translation>
    </message>
    <message>
        <source>&amp;Time Taken</source>
        <translation>&amp;Date de prise de vue</translation>
    </message>
    <message>
        <source>There is no further bracket in this folder.</source>
        <translation>Il n’y a pas d’autre série dans ce dossier.</translation>
    </message>
    <message>
        <source>Bracket %1 of %2</source>
        <translation>Série %1 sur %2</translation>
    </message>
</context>
<context>
    <name>FilmStripModel</name>
    <message>
        <source>merged</source>
        <translation>fusionnée</translation>
    </message>
    <message>
        <source>Bracket of %1, %2</source>
        <translation>Série de %1, %2</translation>
    </message>
    <message>
        <source>A merged picture</source>
        <translation>Une image fusionnée</translation>
    </message>
    <message>
        <source>bracket %1 of %2</source>
        <translation>série %1 sur %2</translation>
    </message>
    <message>
        <source>rated %1 of %2</source>
        <translation>notée %1 sur %2</translation>
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
    <message>
        <source>All channels</source>
        <translation>Tous les canaux</translation>
    </message>
    <message>
        <source>Luminosity</source>
        <translation>Luminosité</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rouge</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Vert</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Bleu</translation>
    </message>
    <message>
        <source>Logarithmic</source>
        <translation>Logarithmique</translation>
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
    <name>LightCommand</name>
    <message>
        <source>%1 developed</source>
        <translation>%1 développée</translation>
    </message>
</context>
<context>
    <name>LightSaving</name>
    <message>
        <source>Radiance picture</source>
        <translation>Image Radiance</translation>
    </message>
    <message>
        <source>TIFF picture, floating point</source>
        <translation>Image TIFF, virgule flottante</translation>
    </message>
    <message>
        <source>OpenEXR picture</source>
        <translation>Image OpenEXR</translation>
    </message>
    <message>
        <source>Save Light</source>
        <translation>Enregistrer la lumière</translation>
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
        <source>files of this kind hold no light; choose .exr, .hdr or .tif</source>
        <translation>les fichiers de ce type ne contiennent pas de lumière ; choisissez .exr, .hdr ou .tif</translation>
    </message>
    <message>
        <source>JPEG picture that bright screens show brighter</source>
        <translation>Image JPEG que les écrans lumineux montrent plus claire</translation>
    </message>
    <message>
        <source>AVIF picture for bright screens</source>
        <translation>Image AVIF pour écrans lumineux</translation>
    </message>
    <message>
        <source>JPEG XL picture for bright screens</source>
        <translation>Image JPEG XL pour écrans lumineux</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>mémoire insuffisante</translation>
    </message>
</context>
<context>
    <name>LightWindow</name>
    <message>
        <source>Exposure</source>
        <translation>Exposition</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>&amp;Method:</source>
        <translation>&amp;Méthode :</translation>
    </message>
    <message>
        <source>&amp;Exposure:</source>
        <translation>&amp;Exposition :</translation>
    </message>
    <message>
        <source>%1 — Light</source>
        <translation>%1 — Lumière</translation>
    </message>
    <message>
        <source>Mar&amp;k what is brighter than white</source>
        <translation>Mar&amp;quer ce qui dépasse le blanc</translation>
    </message>
    <message>
        <source>&amp;Save Light…</source>
        <translation>Enregi&amp;strer la lumière…</translation>
    </message>
    <message>
        <source>&amp;Develop</source>
        <translation>&amp;Développer</translation>
    </message>
    <message>
        <source>As one shot shows it</source>
        <translation>Comme une vue la montre</translation>
    </message>
    <message>
        <source>One curve for all of it</source>
        <translation>Une courbe pour tout</translation>
    </message>
    <message>
        <source>Each place at its best</source>
        <translation>Chaque endroit au mieux</translation>
    </message>
    <message>
        <source>There is not enough memory to show this.</source>
        <translation>La mémoire ne suffit pas pour l’afficher.</translation>
    </message>
    <message>
        <source>Not Developed</source>
        <translation>Non développée</translation>
    </message>
    <message>
        <source>There is not enough memory for a picture of this size.</source>
        <translation>La mémoire ne suffit pas pour une image de cette taille.</translation>
    </message>
    <message>
        <source>Developing…</source>
        <translation>Développement…</translation>
    </message>
    <message>
        <source>Light Not Saved</source>
        <translation>Lumière non enregistrée</translation>
    </message>
    <message>
        <source>The light is in no file yet. Close it without saving?</source>
        <translation>La lumière n’est encore dans aucun fichier. Fermer sans enregistrer ?</translation>
    </message>
</context>
<context>
    <name>LookBox</name>
    <message>
        <source>Look</source>
        <translation>Aspect</translation>
    </message>
    <message>
        <source>Aut&amp;o</source>
        <translation>Aut&amp;o</translation>
    </message>
    <message>
        <source>A look that suits the picture, to begin with</source>
        <translation>Un aspect adapté à l’image, pour commencer</translation>
    </message>
    <message>
        <source>Rese&amp;t</source>
        <translation>Réin&amp;itialiser</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>Exposition :</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>Hautes lumières :</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>Ombres :</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>Contraste :</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>Point noir :</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>Point blanc :</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>Saturation :</translation>
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
    <message>
        <source>Fusion with preview</source>
        <translation>Fusion avec aperçu</translation>
    </message>
    <message>
        <source>Weighted mean of up to five</source>
        <translation>Moyenne pondérée de cinq au plus</translation>
    </message>
    <message>
        <source>&amp;Pictures</source>
        <translation>&amp;Images</translation>
    </message>
</context>
<context>
    <name>MergeOptionsPanel</name>
    <message>
        <source>C&amp;rop to what all shots cover</source>
        <translation>&amp;Recadrer sur la zone commune</translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>Fusion</translation>
    </message>
    <message>
        <source>Exposure fusion</source>
        <translation>Fusion d’expositions</translation>
    </message>
    <message>
        <source>Mean (as Merge to HDR)</source>
        <translation>Moyenne (comme « Fusion HDR »)</translation>
    </message>
    <message>
        <source>&amp;Alignment:</source>
        <translation>&amp;Alignement :</translation>
    </message>
    <message>
        <source>&amp;Ghosts:</source>
        <extracomment>What moved between the shots.</extracomment>
        <translation>Fan&amp;tômes :</translation>
    </message>
    <message>
        <source>Remove, automatically</source>
        <translation>Suppression auto</translation>
    </message>
    <message>
        <source>Leave them in</source>
        <translation>Les laisser</translation>
    </message>
    <message>
        <source>From %1</source>
        <extracomment>%1 is the name of a shot.</extracomment>
        <translation>De %1</translation>
    </message>
    <message>
        <source>Perspective</source>
        <translation>Perspective</translation>
    </message>
    <message>
        <source>Whole pixels</source>
        <translation>Pixels entiers</translation>
    </message>
    <message>
        <source>None (tripod)</source>
        <translation>Aucun (trépied)</translation>
    </message>
    <message>
        <source>Light of the scene</source>
        <translation>Lumière de la scène</translation>
    </message>
    <message>
        <source>M&amp;ethod:</source>
        <translation>&amp;Méthode :</translation>
    </message>
</context>
<context>
    <name>MergePreview</name>
    <message>
        <source>Preview</source>
        <translation>Aperçu</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Avant</translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>Un instant…</translation>
    </message>
</context>
<context>
    <name>MergeTexts</name>
    <message>
        <source>it is too small</source>
        <translation>elle est trop petite</translation>
    </message>
    <message>
        <source>it shows too little detail</source>
        <translation>elle montre trop peu de détails</translation>
    </message>
    <message>
        <source>it does not match the others</source>
        <translation>elle ne correspond pas aux autres</translation>
    </message>
    <message>
        <source>Reading the pictures…</source>
        <translation>Lecture des images…</translation>
    </message>
    <message>
        <source>Aligning…</source>
        <translation>Alignement…</translation>
    </message>
    <message>
        <source>Looking for what moved…</source>
        <translation>Recherche de ce qui a bougé…</translation>
    </message>
    <message>
        <source>Merging…</source>
        <translation>Fusion…</translation>
    </message>
    <message>
        <source>At most %1 pictures can be merged.</source>
        <translation>On peut fusionner au plus %1 images.</translation>
    </message>
    <message>
        <source>The pictures have different sizes.</source>
        <translation>Les images ont des tailles différentes.</translation>
    </message>
    <message>
        <source>Nothing is left to crop to: the pictures do not overlap.</source>
        <translation>Il ne reste rien à recadrer : les images ne se recouvrent pas.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>La mémoire est insuffisante.</translation>
    </message>
    <message>
        <source>“%1” could not be read: %2.</source>
        <extracomment>A file, and why it could not be read.</extracomment>
        <translation>« %1 » n’a pas pu être lu : %2.</translation>
    </message>
    <message>
        <source>“%1” (%2 pixels) has not the size of “%3” (%4 pixels).</source>
        <translation>« %1 » (%2 pixels) n’a pas la taille de « %3 » (%4 pixels).</translation>
    </message>
    <message>
        <source>left unaligned: %1</source>
        <translation>non alignée : %1</translation>
    </message>
    <message>
        <source>lies as it is</source>
        <translation>déjà en place</translation>
    </message>
    <message>
        <source>aligned, %1 % sure</source>
        <extracomment>How far an alignment can be trusted, in percent.</extracomment>
        <translation>alignée, sûre à %1 %</translation>
    </message>
    <message>
        <source>%1 was left unaligned: %2.</source>
        <translation>%1 n’a pas été alignée : %2.</translation>
    </message>
    <message>
        <source>A painted part does not belong to these pictures.</source>
        <translation>Une partie peinte n’appartient pas à ces images.</translation>
    </message>
</context>
<context>
    <name>MergeWorkspace</name>
    <message>
        <source>A&amp;dd Shots…</source>
        <translation>A&amp;jouter des prises…</translation>
    </message>
    <message>
        <source>&amp;Use as Reference</source>
        <translation>&amp;Utiliser comme référence</translation>
    </message>
    <message>
        <source>&amp;Merge</source>
        <translation>&amp;Fusionner</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Merge Exposures</source>
        <translation>Fusionner les expositions</translation>
    </message>
    <message>
        <source>S&amp;hots:</source>
        <translation>&amp;Prises :</translation>
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
        <source>Add Shots</source>
        <translation>Ajouter des prises</translation>
    </message>
    <message>
        <source>Add two or more shots of one scene, or drop them here.</source>
        <translation>Ajoutez deux prises ou plus d’une même scène, ou déposez-les ici.</translation>
    </message>
    <message>
        <source>Aligned: %1 of %2</source>
        <translation>Alignées : %1 sur %2</translation>
    </message>
    <message>
        <source>Choose Reference A&amp;utomatically</source>
        <translation>Référence a&amp;utomatique</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Not Merged</source>
        <translation>Non fusionné</translation>
    </message>
    <message>
        <source>&amp;Next Bracket</source>
        <translation>Série &amp;suivante</translation>
    </message>
    <message>
        <source>Merge Exposures — bracket %1 of %2</source>
        <translation>Fusionner les expositions — série %1 sur %2</translation>
    </message>
    <message>
        <source>Sharpening…</source>
        <translation>Affinage…</translation>
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
    <name>PhotoDock</name>
    <message>
        <source>%1 s</source>
        <extracomment>A time in seconds.</extracomment>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Photograph</source>
        <translation>Photographie</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Appareil</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>Objectif</translation>
    </message>
    <message>
        <source>Taken</source>
        <translation>Prise le</translation>
    </message>
    <message>
        <source>Aperture</source>
        <translation>Ouverture</translation>
    </message>
    <message>
        <source>Sensitivity</source>
        <translation>Sensibilité</translation>
    </message>
    <message>
        <source>Focal length</source>
        <extracomment>A length in millimetres.</extracomment>
        <translation>Focale</translation>
    </message>
    <message>
        <source>%1 mm</source>
        <translation>%1 mm</translation>
    </message>
    <message>
        <source>Correction</source>
        <extracomment>An exposure in stops, with its sign.</extracomment>
        <translation>Correction</translation>
    </message>
    <message>
        <source>%1 EV</source>
        <translation>%1 IL</translation>
    </message>
    <message>
        <source>Exposure time</source>
        <translation>Temps de pose</translation>
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
        <source>the OpenEXR file could not be written</source>
        <translation>le fichier OpenEXR n’a pas pu être écrit</translation>
    </message>
    <message>
        <source>the Radiance file could not be written</source>
        <translation>le fichier Radiance n’a pas pu être écrit</translation>
    </message>
    <message>
        <source>the TIFF file could not be written</source>
        <translation>le fichier TIFF n’a pas pu être écrit</translation>
    </message>
    <message>
        <source>this program was built without OpenEXR</source>
        <translation>ce programme a été compilé sans OpenEXR</translation>
    </message>
    <message>
        <source>the AVIF file could not be written</source>
        <translation>le fichier AVIF n’a pas pu être écrit</translation>
    </message>
    <message>
        <source>the JPEG XL file could not be written</source>
        <translation>le fichier JPEG XL n’a pas pu être écrit</translation>
    </message>
    <message>
        <source>this program was built without AVIF</source>
        <translation>ce programme a été compilé sans AVIF</translation>
    </message>
    <message>
        <source>this program was built without JPEG XL</source>
        <translation>ce programme a été compilé sans JPEG XL</translation>
    </message>
</context>
<context>
    <name>PictureRating</name>
    <message>
        <source>its XMP file cannot be read</source>
        <translation>son fichier XMP ne peut pas être lu</translation>
    </message>
</context>
<context>
    <name>PreviewBar</name>
    <message>
        <source>Before</source>
        <translation>Avant</translation>
    </message>
    <message>
        <source>The reference as it was taken, while B or this is held</source>
        <translation>La référence telle quelle, tant que B ou ce bouton est maintenu</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>Diviser</translation>
    </message>
    <message>
        <source>Before and after side by side; drag the line (S)</source>
        <translation>Avant et après côte à côte ; faites glisser la ligne (S)</translation>
    </message>
    <message>
        <source>Blink</source>
        <translation>Alterner</translation>
    </message>
    <message>
        <source>The aligned shots, one after the other (K)</source>
        <translation>Les prises alignées, l’une après l’autre (K)</translation>
    </message>
    <message>
        <source>Clipping</source>
        <translation>Écrêtage</translation>
    </message>
    <message>
        <source>Red where it is too bright, blue where it is too dark (C)</source>
        <translation>Rouge là où c’est trop clair, bleu là où c’est trop sombre (C)</translation>
    </message>
    <message>
        <source>Loupe</source>
        <translation>Loupe</translation>
    </message>
    <message>
        <source>100 % around the pointer (L)</source>
        <translation>100 % autour du pointeur (L)</translation>
    </message>
    <message>
        <source>Fit</source>
        <extracomment>On a button: the picture as large as it fits.</extracomment>
        <translation>Ajuster</translation>
    </message>
    <message>
        <source>As large as it fits (Ctrl+0)</source>
        <translation>Aussi grand que possible (Ctrl+0)</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100&#xa0;%</translation>
    </message>
    <message>
        <source>Pixel for pixel (Ctrl+1)</source>
        <translation>Pixel pour pixel (Ctrl+1)</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1&#xa0;%</translation>
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
    <name>Recovery</name>
    <message>
        <source>the folder “%1” cannot be written</source>
        <translation>le dossier « %1 » n’est pas accessible en écriture</translation>
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
    <message>
        <source>PNG picture, 16 bits per channel</source>
        <translation>Image PNG, 16 bits par canal</translation>
    </message>
    <message>
        <source>PNG picture, 8 bits per channel</source>
        <translation>Image PNG, 8 bits par canal</translation>
    </message>
    <message>
        <source>TIFF picture, 16 bits per channel</source>
        <translation>Image TIFF, 16 bits par canal</translation>
    </message>
    <message>
        <source>TIFF picture, 8 bits per channel</source>
        <translation>Image TIFF, 8 bits par canal</translation>
    </message>
</context>
<context>
    <name>ScreenColoursMenu</name>
    <message>
        <source>&amp;Screen Colours</source>
        <translation>&amp;Couleurs de l’écran</translation>
    </message>
    <message>
        <source>&amp;sRGB (Most Screens)</source>
        <translation>&amp;sRGB (la plupart des écrans)</translation>
    </message>
    <message>
        <source>Colour profiles</source>
        <translation>Profils de couleurs</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Tous les fichiers</translation>
    </message>
    <message>
        <source>Profile of the Screen</source>
        <translation>Profil de l’écran</translation>
    </message>
    <message>
        <source>Screen Colours</source>
        <translation>Couleurs de l’écran</translation>
    </message>
    <message>
        <source>“%1” is not a colour profile for a screen.</source>
        <translation>« %1 » n’est pas un profil de couleurs pour un écran.</translation>
    </message>
    <message>
        <source>&amp;Profile File…</source>
        <translation>&amp;Fichier de profil…</translation>
    </message>
    <message>
        <source>&amp;Profile File: %1…</source>
        <translation>&amp;Fichier de profil : %1…</translation>
    </message>
</context>
<context>
    <name>SessionKeeper</name>
    <message>
        <source>Recovery</source>
        <translation>Récupération</translation>
    </message>
    <message>
        <source>Vesk did not end as it should. Unsaved changes were kept of:</source>
        <translation>Vesk ne s’est pas terminé normalement. Des modifications non enregistrées sont conservées pour :</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Récupérer</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Plus tard</translation>
    </message>
    <message>
        <source>Could not be recovered: %1</source>
        <translation>Récupération impossible : %1</translation>
    </message>
    <message>
        <source>Unsaved changes cannot be kept for recovery: %1</source>
        <translation>Les modifications ne peuvent pas être gardées pour la récupération : %1</translation>
    </message>
</context>
<context>
    <name>ShotList</name>
    <message>
        <source>Shots</source>
        <translation>Prises</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Lecture…</translation>
    </message>
    <message>
        <source>★ reference</source>
        <extracomment>The shot that the others are aligned to.</extracomment>
        <translation>★ référence</translation>
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
    <name>StraightenTool</name>
    <message>
        <source>Straighten</source>
        <translation>Redresser</translation>
    </message>
    <message>
        <source>Draw a line along the horizon, or along something upright</source>
        <translation>Tracez une ligne le long de l’horizon ou d’une verticale</translation>
    </message>
</context>
<context>
    <name>ThemeMenu</name>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Thème</translation>
    </message>
    <message>
        <source>&amp;As the Desktop</source>
        <translation>Comme le &amp;bureau</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Sombre</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Clair</translation>
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
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Affichage</translation>
    </message>
    <message>
        <source>&amp;Clipping Warning</source>
        <translation>Alerte d’écrêta&amp;ge</translation>
    </message>
    <message>
        <source>Side by &amp;Side</source>
        <translation>Côte à &amp;côte</translation>
    </message>
    <message>
        <source>Show another document beside this one</source>
        <translation>Afficher un autre document à côté de celui-ci</translation>
    </message>
    <message>
        <source>&amp;Lock Views</source>
        <translation>&amp;Lier les vues</translation>
    </message>
    <message>
        <source>Zoom and place of both documents move together</source>
        <translation>Le zoom et la position des deux documents changent ensemble</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>Un petit éditeur de photos qui fusionne des séries d’expositions.</translation>
    </message>
    <message>
        <source>Merge these pictures.</source>
        <translation>Fusionner ces images.</translation>
    </message>
    <message>
        <source>Pictures to open, or a folder to show.</source>
        <translation>Images à ouvrir, ou dossier à afficher.</translation>
    </message>
</context>
</TS>
