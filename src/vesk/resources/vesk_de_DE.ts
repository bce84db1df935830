<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Vesk</source>
        <translation>Über Vesk</translation>
    </message>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>Eine kleine Fotobearbeitung, die Belichtungsreihen zusammenfügt.</translation>
    </message>
    <message>
        <source>Free software under the MIT licence. Built on Qt %1, LibRaw, libexif and OpenCL.</source>
        <translation>Freie Software unter der MIT-Lizenz. Verwendet Qt %1, LibRaw, libexif und OpenCL.</translation>
    </message>
</context>
<context>
    <name>AdjustDock</name>
    <message>
        <source>Adjust</source>
        <translation>Anpassen</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>Belichtung:</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>Kontrast:</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>Lichter:</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>Tiefen:</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>Schwarzpunkt:</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>Weißpunkt:</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>Sättigung:</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Propose a look from how light and dark the picture is</source>
        <translation>Einen Vorschlag machen, aus den Helligkeiten des Bildes</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Vergleichen</translation>
    </message>
    <message>
        <source>Hold to see the picture without these changes</source>
        <translation>Gedrückt halten, um das Bild ohne diese Änderungen zu sehen</translation>
    </message>
</context>
<context>
    <name>BatchWindow</name>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Starten</translation>
    </message>
    <message>
        <source>Sto&amp;p</source>
        <translation>Anhal&amp;ten</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Merge Brackets</source>
        <translation>Belichtungsreihen verschmelzen</translation>
    </message>
    <message>
        <source>&amp;Folder with shots:</source>
        <translation>&amp;Ordner mit Aufnahmen:</translation>
    </message>
    <message>
        <source>Cho&amp;ose…</source>
        <translation>&amp;Wählen…</translation>
    </message>
    <message>
        <source>Folder for res&amp;ults:</source>
        <translation>Or&amp;dner für Ergebnisse:</translation>
    </message>
    <message>
        <source>C&amp;hoose…</source>
        <translation>Wä&amp;hlen…</translation>
    </message>
    <message>
        <source>For&amp;mat:</source>
        <translation>For&amp;mat:</translation>
    </message>
    <message>
        <source>Looking for brackets…</source>
        <translation>Suche nach Belichtungsreihen…</translation>
    </message>
    <message>
        <source>%1 brackets to merge</source>
        <translation>Belichtungsreihen zu verschmelzen: %1</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Pausiert</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>%1 merged, %2 done already, %3 failed, %4 stopped</source>
        <translation>%1 verschmolzen, %2 schon erledigt, %3 fehlgeschlagen, %4 angehalten</translation>
    </message>
    <message>
        <source>Fi&amp;nd Again</source>
        <translation>&amp;Neu suchen</translation>
    </message>
    <message>
        <source>Finds the brackets of the folder anew, without your changes</source>
        <translation>Sucht die Belichtungsreihen des Ordners neu, ohne Ihre Änderungen</translation>
    </message>
    <message>
        <source>%1 of %2, about %3 left</source>
        <translation>%1 von %2, noch etwa %3</translation>
    </message>
    <message>
        <source>Show Resu&amp;lts</source>
        <translation>&amp;Ergebnisse zeigen</translation>
    </message>
    <message>
        <source>Go O&amp;n</source>
        <translation>Fo&amp;rtsetzen</translation>
    </message>
    <message>
        <source>Pau&amp;se</source>
        <translation>&amp;Pause</translation>
    </message>
</context>
<context>
    <name>BracketBatch</name>
    <message>
        <source>another file of this name is there</source>
        <translation>eine andere Datei dieses Namens ist vorhanden</translation>
    </message>
    <message>
        <source>another bracket gets the same name</source>
        <translation>eine andere Belichtungsreihe erhält denselben Namen</translation>
    </message>
</context>
<context>
    <name>BracketTable</name>
    <message>
        <source>waiting</source>
        <translation>wartet</translation>
    </message>
    <message>
        <source>Merging…</source>
        <translation>Verschmelzen…</translation>
    </message>
    <message>
        <source>merged</source>
        <translation>verschmolzen</translation>
    </message>
    <message>
        <source>done already</source>
        <translation>schon erledigt</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>fehlgeschlagen</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>angehalten</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>Bracket</source>
        <translation>Belichtungsreihe</translation>
    </message>
    <message>
        <source>Shots</source>
        <translation>Aufnahmen</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Stand</translation>
    </message>
    <message>
        <source>Brackets</source>
        <translation>Belichtungsreihen</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>&amp;Join</source>
        <translation>&amp;Verbinden</translation>
    </message>
    <message>
        <source>Sp&amp;lit Here</source>
        <translation>Hier &amp;teilen</translation>
    </message>
    <message>
        <source>Take Out or Put &amp;Back</source>
        <translation>&amp;Herausnehmen oder zurücklegen</translation>
    </message>
    <message>
        <source>Makes one bracket of the selected brackets and shots</source>
        <translation>Macht aus den gewählten Reihen und Aufnahmen eine einzige Belichtungsreihe</translation>
    </message>
    <message>
        <source>Begins another bracket with the selected shot</source>
        <translation>Beginnt mit der gewählten Aufnahme eine weitere Belichtungsreihe</translation>
    </message>
    <message>
        <source>In no bracket</source>
        <translation>In keiner Belichtungsreihe</translation>
    </message>
</context>
<context>
    <name>BrushBar</name>
    <message>
        <source>Brush</source>
        <translation>Pinsel</translation>
    </message>
    <message>
        <source>Paint over the preview which shot a part comes from (P)</source>
        <translation>Auf die Vorschau malen, aus welcher Aufnahme ein Teil kommt (P)</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Radierer</translation>
    </message>
    <message>
        <source>Erase what was painted (E, Alt, right button)</source>
        <translation>Gemaltes wegradieren (E, Alt, rechte Taste)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Take the last stroke back (Ctrl+Z)</source>
        <translation>Den letzten Strich zurücknehmen (Strg+Z)</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Take all strokes away</source>
        <translation>Alle Striche entfernen</translation>
    </message>
    <message>
        <source>Shot to paint with</source>
        <translation>Aufnahme zum Malen</translation>
    </message>
    <message>
        <source>What is painted comes from this shot. Shift and a click take what moved there, whole; Ctrl moves the picture.</source>
        <translation>Was gemalt wird, kommt aus dieser Aufnahme. Umschalt und ein Klick nehmen das, was sich dort bewegt hat, im Ganzen; Strg verschiebt das Bild.</translation>
    </message>
    <message>
        <source>Size of the brush</source>
        <translation>Größe des Pinsels</translation>
    </message>
    <message>
        <source>Size of the brush ([ and ])</source>
        <translation>Größe des Pinsels ([ und ])</translation>
    </message>
</context>
<context>
    <name>CropTool</name>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation>Seitenverhältnis</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Frei</translation>
    </message>
    <message>
        <source>As it is</source>
        <translation>Wie das Bild</translation>
    </message>
    <message>
        <source>What all shots cover</source>
        <translation>Was alle Aufnahmen zeigen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>Document</name>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Show Layer</source>
        <translation>Ebene einblenden</translation>
    </message>
    <message>
        <source>Hide Layer</source>
        <translation>Ebene ausblenden</translation>
    </message>
</context>
<context>
    <name>DocumentSaver</name>
    <message>
        <source>Unsaved Changes</source>
        <translation>Nicht gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <translation>Änderungen an „%1“ speichern?</translation>
    </message>
    <message>
        <source>If you do not save them, they will be lost.</source>
        <translation>Wenn Sie sie nicht speichern, gehen sie verloren.</translation>
    </message>
    <message>
        <source>no layer is visible</source>
        <translation>keine Ebene ist sichtbar</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2.</source>
        <translation>„%1“ konnte nicht gespeichert werden: %2.</translation>
    </message>
    <message>
        <source>The picture is still open, with all its changes. You can save it elsewhere.</source>
        <translation>Das Bild ist mit allen Änderungen noch geöffnet. Sie können es an einem anderen Ort speichern.</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>zu wenig Arbeitsspeicher</translation>
    </message>
    <message>
        <source>Show a layer in the list of layers, then save again.</source>
        <translation>Blenden Sie in der Liste der Ebenen eine Ebene ein und speichern Sie dann noch einmal.</translation>
    </message>
    <message>
        <source>%1 documents have unsaved changes.</source>
        <translation>%1 Dokumente haben nicht gespeicherte Änderungen.</translation>
    </message>
    <message>
        <source>&amp;Save All</source>
        <translation>Alle &amp;speichern</translation>
    </message>
    <message>
        <source>&amp;Discard All</source>
        <translation>Alle &amp;verwerfen</translation>
    </message>
    <message>
        <source>“%1” has been changed by another program.</source>
        <translation>„%1“ wurde von einem anderen Programm geändert.</translation>
    </message>
    <message>
        <source>If you replace it, what was changed there is lost.</source>
        <translation>Wenn Sie die Datei ersetzen, gehen diese Änderungen verloren.</translation>
    </message>
    <message>
        <source>“%1” holds a gain map: bright screens show it brighter.</source>
        <translation>„%1“ enthält eine Gain-Map: Helle Bildschirme zeigen das Bild heller.</translation>
    </message>
    <message>
        <source>Vesk cannot keep that. The file would look the same on all screens from now on.</source>
        <translation>Vesk kann das nicht erhalten. Die Datei sähe künftig auf allen Bildschirmen gleich aus.</translation>
    </message>
    <message>
        <source>Replace the File?</source>
        <translation>Datei ersetzen?</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>&amp;Ersetzen</translation>
    </message>
</context>
<context>
    <name>DocumentTabBar</name>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Close &amp;Others</source>
        <translation>&amp;Andere schließen</translation>
    </message>
</context>
<context>
    <name>DocumentTabs</name>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>%1 •</source>
        <extracomment>A document with unsaved changes; %1 is its name.</extracomment>
        <translation>%1 •</translation>
    </message>
    <message>
        <source>All open documents</source>
        <translation>Alle geöffneten Dokumente</translation>
    </message>
    <message>
        <source>From the Other Side</source>
        <translation>Von der anderen Seite</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <extracomment>%1 is what the user did last, such as &quot;Crop&quot;.</extracomment>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste as Document</source>
        <translation>Als Dokument &amp;einfügen</translation>
    </message>
    <message>
        <source>&amp;Straighten…</source>
        <translation>&amp;Geraderichten…</translation>
    </message>
    <message>
        <source>Rotate &amp;Left</source>
        <translation>Nach &amp;links drehen</translation>
    </message>
    <message>
        <source>Rotate Ri&amp;ght</source>
        <translation>Nach re&amp;chts drehen</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>Pasted Picture</source>
        <extracomment>The name of a document from the clipboard.</extracomment>
        <translation>Eingefügtes Bild</translation>
    </message>
    <message>
        <source>Cr&amp;op…</source>
        <translation>&amp;Zuschneiden…</translation>
    </message>
</context>
<context>
    <name>EditorActions</name>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>Open &amp;Folder…</source>
        <translation>&amp;Ordner öffnen…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>&amp;Fit to Window</source>
        <translation>An Fenster &amp;anpassen</translation>
    </message>
    <message>
        <source>&amp;Actual Size (100 %)</source>
        <translation>&amp;Originalgröße (100&#xa0;%)</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Anpassen</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100&#xa0;%</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>&amp;Next Document</source>
        <translation>&amp;Nächstes Dokument</translation>
    </message>
    <message>
        <source>&amp;Previous Document</source>
        <translation>Vor&amp;heriges Dokument</translation>
    </message>
    <message>
        <source>&amp;Merge to HDR…</source>
        <translation>Zu HDR &amp;zusammenfügen…</translation>
    </message>
    <message>
        <source>&amp;About Vesk</source>
        <translation>Ü&amp;ber Vesk</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <extracomment>The tip of a button: the command, and the keys that do the same.</extracomment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Merge &amp;Exposures…</source>
        <translation>&amp;Belichtungen verschmelzen…</translation>
    </message>
    <message>
        <source>Align the selected shots and fuse them: preview, options, a new document</source>
        <translation>Die ausgewählten Aufnahmen ausrichten und verschmelzen: mit Vorschau und Optionen, als neues Dokument</translation>
    </message>
    <message>
        <source>Merge up to five shots by their weighted mean, in place of the document</source>
        <translation>Bis zu fünf Aufnahmen als gewichtetes Mittel zusammenfügen; ersetzt das Dokument</translation>
    </message>
    <message>
        <source>Merge &amp;Brackets…</source>
        <translation>Belichtungs&amp;reihen verschmelzen…</translation>
    </message>
    <message>
        <source>Find the brackets of a folder and merge them all, as Merge Exposures does</source>
        <translation>Die Belichtungsreihen eines Ordners finden und alle verschmelzen, wie „Belichtungen verschmelzen“</translation>
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
        <translation>%1, %2   R %3 G %4 B %5</translation>
    </message>
    <message>
        <source>Opening %1…</source>
        <translation>%1 wird geöffnet…</translation>
    </message>
    <message>
        <source>Opening %1 (%2 of %3)…</source>
        <translation>%1 wird geöffnet (%2 von %3)…</translation>
    </message>
</context>
<context>
    <name>Edits</name>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Straighten</source>
        <translation>Geraderichten</translation>
    </message>
    <message>
        <source>Adjust</source>
        <translation>Anpassen</translation>
    </message>
</context>
<context>
    <name>ExposureMergeCommand</name>
    <message>
        <source>%1 merged</source>
        <extracomment>The name of a merged picture; %1 is that of the shot it was made from.</extracomment>
        <translation>%1 verschmolzen</translation>
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
        <translation>%1 LW</translation>
    </message>
</context>
<context>
    <name>FilmStrip</name>
    <message>
        <source>No pictures in this folder</source>
        <translation>Keine Bilder in diesem Ordner</translation>
    </message>
    <message>
        <source>Film Strip</source>
        <translation>Filmstreifen</translation>
    </message>
</context>
<context>
    <name>FilmStripActions</name>
    <message>
        <source>&amp;Next Bracket</source>
        <translation>&amp;Nächste Belichtungsreihe</translation>
    </message>
    <message>
        <source>&amp;Previous Bracket</source>
        <translation>&amp;Vorherige Belichtungsreihe</translation>
    </message>
    <message>
        <source>Select &amp;All Pictures</source>
        <translation>&amp;Alle Bilder auswählen</translation>
    </message>
    <message>
        <source>&amp;Hide Merged Results</source>
        <translation>&amp;Ergebnisse ausblenden</translation>
    </message>
    <message>
        <source>&amp;Rating</source>
        <translation>&amp;Bewertung</translation>
    </message>
    <message>
        <source>&amp;Sort By</source>
        <translation>&amp;Sortieren nach</translation>
    </message>
    <message>
        <source>The rating of “%1” could not be saved: %2.</source>
        <extracomment>%1 is the name of a picture, %2 the reason.</extracomment>
        <translation>Die Bewertung von „%1“ konnte nicht gespeichert werden: %2.</translation>
    </message>
    <message>
        <source>No Stars</source>
        <translation>Keine Sterne</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>&amp;Time Taken</source>
        <translation>&amp;Aufnahmezeit</translation>
    </message>
    <message>
        <source>There is no further bracket in this folder.</source>
        <translation>In diesem Ordner gibt es keine weitere Belichtungsreihe.</translation>
    </message>
    <message>
        <source>Bracket %1 of %2</source>
        <translation>Belichtungsreihe %1 von %2</translation>
    </message>
</context>
<context>
    <name>FilmStripModel</name>
    <message>
        <source>merged</source>
        <translation>verschmolzen</translation>
    </message>
    <message>
        <source>Bracket of %1, %2</source>
        <translation>Belichtungsreihe aus %1, %2</translation>
    </message>
    <message>
        <source>A merged picture</source>
        <translation>Ein verschmolzenes Bild</translation>
    </message>
    <message>
        <source>bracket %1 of %2</source>
        <translation>Belichtungsreihe %1 von %2</translation>
    </message>
    <message>
        <source>rated %1 of %2</source>
        <translation>mit %1 von %2 bewertet</translation>
    </message>
</context>
<context>
    <name>HdrCommand</name>
    <message>
        <source>Merge to HDR</source>
        <translation>Zu HDR zusammenfügen</translation>
    </message>
    <message>
        <source>%1 pictures are selected, but at most %2 can be merged.</source>
        <translation>%1 Bilder sind ausgewählt, aber höchstens %2 können zusammengefügt werden.</translation>
    </message>
    <message>
        <source>Only these will be taken: %1</source>
        <translation>Nur diese werden übernommen: %1</translation>
    </message>
</context>
<context>
    <name>HistogramDock</name>
    <message>
        <source>Histogram</source>
        <translation>Histogramm</translation>
    </message>
    <message>
        <source>All channels</source>
        <translation>Alle Kanäle</translation>
    </message>
    <message>
        <source>Luminosity</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Logarithmic</source>
        <translation>Logarithmisch</translation>
    </message>
</context>
<context>
    <name>JpegQualityDialog</name>
    <message>
        <source>JPEG Quality</source>
        <translation>JPEG-Qualität</translation>
    </message>
    <message>
        <source>&amp;Quality:</source>
        <translation>&amp;Qualität:</translation>
    </message>
    <message>
        <source>Low values give small files, high ones keep more detail. From about 95 on, losses are hard to see.</source>
        <translation>Niedrige Werte ergeben kleine Dateien, hohe erhalten mehr Details. Ab etwa 95 sind Verluste kaum zu sehen.</translation>
    </message>
    <message>
        <source>JPEG files cannot hold transparency: what is transparent becomes white.</source>
        <translation>JPEG-Dateien kennen keine Transparenz: Was durchsichtig ist, wird weiß.</translation>
    </message>
</context>
<context>
    <name>LanguageMenu</name>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
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
        <translation>Ankreuzen, um die Ebene zu zeigen</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Ebenen</translation>
    </message>
</context>
<context>
    <name>LightCommand</name>
    <message>
        <source>%1 developed</source>
        <translation>%1 entwickelt</translation>
    </message>
</context>
<context>
    <name>LightSaving</name>
    <message>
        <source>Radiance picture</source>
        <translation>Radiance-Bild</translation>
    </message>
    <message>
        <source>TIFF picture, floating point</source>
        <translation>TIFF-Bild, Gleitkomma</translation>
    </message>
    <message>
        <source>OpenEXR picture</source>
        <translation>OpenEXR-Bild</translation>
    </message>
    <message>
        <source>Save Light</source>
        <translation>Licht speichern</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>Nicht gespeichert</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2.</source>
        <translation>„%1“ konnte nicht gespeichert werden: %2.</translation>
    </message>
    <message>
        <source>files of this kind hold no light; choose .exr, .hdr or .tif</source>
        <translation>Dateien dieser Art enthalten kein Licht; wählen Sie .exr, .hdr oder .tif</translation>
    </message>
    <message>
        <source>JPEG picture that bright screens show brighter</source>
        <translation>JPEG-Bild, das helle Bildschirme heller zeigen</translation>
    </message>
    <message>
        <source>AVIF picture for bright screens</source>
        <translation>AVIF-Bild für helle Bildschirme</translation>
    </message>
    <message>
        <source>JPEG XL picture for bright screens</source>
        <translation>JPEG-XL-Bild für helle Bildschirme</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>zu wenig Arbeitsspeicher</translation>
    </message>
</context>
<context>
    <name>LightWindow</name>
    <message>
        <source>Exposure</source>
        <translation>Belichtung</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Method:</source>
        <translation>&amp;Verfahren:</translation>
    </message>
    <message>
        <source>&amp;Exposure:</source>
        <translation>&amp;Belichtung:</translation>
    </message>
    <message>
        <source>%1 — Light</source>
        <translation>%1 — Licht</translation>
    </message>
    <message>
        <source>Mar&amp;k what is brighter than white</source>
        <translation>Mar&amp;kieren, was heller als Weiß ist</translation>
    </message>
    <message>
        <source>&amp;Save Light…</source>
        <translation>Licht &amp;speichern…</translation>
    </message>
    <message>
        <source>&amp;Develop</source>
        <translation>&amp;Entwickeln</translation>
    </message>
    <message>
        <source>As one shot shows it</source>
        <translation>Wie eine Aufnahme es zeigt</translation>
    </message>
    <message>
        <source>One curve for all of it</source>
        <translation>Eine Kurve für alles</translation>
    </message>
    <message>
        <source>Each place at its best</source>
        <translation>Jede Stelle, wie sie am besten wirkt</translation>
    </message>
    <message>
        <source>There is not enough memory to show this.</source>
        <translation>Der Speicher reicht nicht aus, um dies zu zeigen.</translation>
    </message>
    <message>
        <source>Not Developed</source>
        <translation>Nicht entwickelt</translation>
    </message>
    <message>
        <source>There is not enough memory for a picture of this size.</source>
        <translation>Der Speicher reicht nicht für ein Bild dieser Größe.</translation>
    </message>
    <message>
        <source>Developing…</source>
        <translation>Entwickle…</translation>
    </message>
    <message>
        <source>Light Not Saved</source>
        <translation>Licht nicht gespeichert</translation>
    </message>
    <message>
        <source>The light is in no file yet. Close it without saving?</source>
        <translation>Das Licht ist noch in keiner Datei. Ohne Speichern schließen?</translation>
    </message>
</context>
<context>
    <name>LookBox</name>
    <message>
        <source>Look</source>
        <translation>Aussehen</translation>
    </message>
    <message>
        <source>Aut&amp;o</source>
        <translation>Automatis&amp;ch</translation>
    </message>
    <message>
        <source>A look that suits the picture, to begin with</source>
        <translation>Ein Aussehen, das zum Bild passt, als Anfang</translation>
    </message>
    <message>
        <source>Rese&amp;t</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>Belichtung:</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>Lichter:</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>Tiefen:</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>Kontrast:</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>Schwarzpunkt:</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>Weißpunkt:</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>Sättigung:</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Film Strip</source>
        <translation>Filmstreifen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Werkzeuge</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>&amp;Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Vesk will speak this language when it is started again: %1</source>
        <translation>Vesk verwendet diese Sprache ab dem nächsten Start: %1</translation>
    </message>
    <message>
        <source>Tool Bar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>Film Strip — %1</source>
        <translation>Filmstreifen — %1</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>Open Pictures</source>
        <translation>Bilder öffnen</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>%1[*] — Vesk</source>
        <translation>%1[*] — Vesk</translation>
    </message>
    <message>
        <source>Fusion with preview</source>
        <translation>Verschmelzen mit Vorschau</translation>
    </message>
    <message>
        <source>Weighted mean of up to five</source>
        <translation>Gewichtetes Mittel von bis zu fünf</translation>
    </message>
    <message>
        <source>&amp;Pictures</source>
        <translation>B&amp;ilder</translation>
    </message>
</context>
<context>
    <name>MergeOptionsPanel</name>
    <message>
        <source>C&amp;rop to what all shots cover</source>
        <translation>Auf gemeinsame &amp;Fläche zuschneiden</translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>Verschmelzen</translation>
    </message>
    <message>
        <source>Exposure fusion</source>
        <translation>Belichtungsverschmelzung</translation>
    </message>
    <message>
        <source>Mean (as Merge to HDR)</source>
        <translation>Mittel (wie „Zu HDR zusammenfügen“)</translation>
    </message>
    <message>
        <source>&amp;Alignment:</source>
        <translation>&amp;Ausrichten:</translation>
    </message>
    <message>
        <source>&amp;Ghosts:</source>
        <extracomment>What moved between the shots.</extracomment>
        <translation>&amp;Geister:</translation>
    </message>
    <message>
        <source>Remove, automatically</source>
        <translation>Automatisch entfernen</translation>
    </message>
    <message>
        <source>Leave them in</source>
        <translation>Belassen</translation>
    </message>
    <message>
        <source>From %1</source>
        <extracomment>%1 is the name of a shot.</extracomment>
        <translation>Aus %1</translation>
    </message>
    <message>
        <source>Perspective</source>
        <translation>Perspektive</translation>
    </message>
    <message>
        <source>Whole pixels</source>
        <translation>Ganze Pixel</translation>
    </message>
    <message>
        <source>None (tripod)</source>
        <translation>Keine (Stativ)</translation>
    </message>
    <message>
        <source>Light of the scene</source>
        <translation>Licht der Szene</translation>
    </message>
    <message>
        <source>M&amp;ethod:</source>
        <translation>&amp;Verfahren:</translation>
    </message>
</context>
<context>
    <name>MergePreview</name>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>Einen Augenblick…</translation>
    </message>
</context>
<context>
    <name>MergeTexts</name>
    <message>
        <source>it is too small</source>
        <translation>sie ist zu klein</translation>
    </message>
    <message>
        <source>it shows too little detail</source>
        <translation>sie zeigt zu wenig Einzelheiten</translation>
    </message>
    <message>
        <source>it does not match the others</source>
        <translation>sie passt nicht zu den anderen</translation>
    </message>
    <message>
        <source>Reading the pictures…</source>
        <translation>Bilder werden gelesen…</translation>
    </message>
    <message>
        <source>Aligning…</source>
        <translation>Ausrichten…</translation>
    </message>
    <message>
        <source>Looking for what moved…</source>
        <translation>Suche, was sich bewegt hat…</translation>
    </message>
    <message>
        <source>Merging…</source>
        <translation>Verschmelzen…</translation>
    </message>
    <message>
        <source>At most %1 pictures can be merged.</source>
        <translation>Höchstens %1 Bilder können verschmolzen werden.</translation>
    </message>
    <message>
        <source>The pictures have different sizes.</source>
        <translation>Die Bilder sind verschieden groß.</translation>
    </message>
    <message>
        <source>Nothing is left to crop to: the pictures do not overlap.</source>
        <translation>Es bleibt keine gemeinsame Fläche: Die Bilder überlappen nicht.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>Der Arbeitsspeicher reicht nicht.</translation>
    </message>
    <message>
        <source>“%1” could not be read: %2.</source>
        <extracomment>A file, and why it could not be read.</extracomment>
        <translation>„%1“ konnte nicht gelesen werden: %2.</translation>
    </message>
    <message>
        <source>“%1” (%2 pixels) has not the size of “%3” (%4 pixels).</source>
        <translation>„%1“ (%2 Pixel) hat nicht die Größe von „%3“ (%4 Pixel).</translation>
    </message>
    <message>
        <source>left unaligned: %1</source>
        <translation>nicht ausgerichtet: %1</translation>
    </message>
    <message>
        <source>lies as it is</source>
        <translation>liegt schon richtig</translation>
    </message>
    <message>
        <source>aligned, %1 % sure</source>
        <extracomment>How far an alignment can be trusted, in percent.</extracomment>
        <translation>ausgerichtet, %1 % sicher</translation>
    </message>
    <message>
        <source>%1 was left unaligned: %2.</source>
        <translation>%1 wurde nicht ausgerichtet: %2.</translation>
    </message>
    <message>
        <source>A painted part does not belong to these pictures.</source>
        <translation>Ein gemalter Teil gehört nicht zu diesen Bildern.</translation>
    </message>
</context>
<context>
    <name>MergeWorkspace</name>
    <message>
        <source>A&amp;dd Shots…</source>
        <translation>Aufnahmen &amp;hinzufügen…</translation>
    </message>
    <message>
        <source>&amp;Use as Reference</source>
        <translation>Als Bez&amp;ug verwenden</translation>
    </message>
    <message>
        <source>&amp;Merge</source>
        <translation>Verschm&amp;elzen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Merge Exposures</source>
        <translation>Belichtungen verschmelzen</translation>
    </message>
    <message>
        <source>S&amp;hots:</source>
        <translation>Aufnah&amp;men:</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>Add Shots</source>
        <translation>Aufnahmen hinzufügen</translation>
    </message>
    <message>
        <source>Add two or more shots of one scene, or drop them here.</source>
        <translation>Fügen Sie zwei oder mehr Aufnahmen einer Szene hinzu oder ziehen Sie sie hierher.</translation>
    </message>
    <message>
        <source>Aligned: %1 of %2</source>
        <translation>Ausgerichtet: %1 von %2</translation>
    </message>
    <message>
        <source>Choose Reference A&amp;utomatically</source>
        <translation>Bez&amp;ug automatisch wählen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Not Merged</source>
        <translation>Nicht verschmolzen</translation>
    </message>
    <message>
        <source>&amp;Next Bracket</source>
        <translation>&amp;Nächste Belichtungsreihe</translation>
    </message>
    <message>
        <source>Merge Exposures — bracket %1 of %2</source>
        <translation>Belichtungen verschmelzen — Belichtungsreihe %1 von %2</translation>
    </message>
    <message>
        <source>Sharpening…</source>
        <translation>Wird scharf…</translation>
    </message>
</context>
<context>
    <name>OpenFailureBox</name>
    <message>
        <source>“%1”: %2</source>
        <extracomment>A file, and why it could not be opened.</extracomment>
        <translation>„%1“: %2</translation>
    </message>
    <message>
        <source>This file could not be opened:</source>
        <translation>Diese Datei konnte nicht geöffnet werden:</translation>
    </message>
    <message numerus="yes">
        <source>%n files could not be opened:</source>
        <translation>
            <numerusform>%n Datei konnte nicht geöffnet werden:</numerusform>
            <numerusform>%n Dateien konnten nicht geöffnet werden:</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Opened</source>
        <translation>Nicht geöffnet</translation>
    </message>
</context>
<context>
    <name>OutputFile</name>
    <message>
        <source>Permission denied</source>
        <translation>keine Berechtigung</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>der zugeteilte Speicherplatz ist erschöpft</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>auf dem Datenträger ist kein Platz mehr</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>der Datenträger ist schreibgeschützt</translation>
    </message>
    <message>
        <source>there is no such folder</source>
        <translation>diesen Ordner gibt es nicht</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>ist ein Ordner</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>the file exists already</source>
        <translation>die Datei gibt es bereits</translation>
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
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>Objektiv</translation>
    </message>
    <message>
        <source>Taken</source>
        <translation>Aufgenommen</translation>
    </message>
    <message>
        <source>Aperture</source>
        <translation>Blende</translation>
    </message>
    <message>
        <source>Sensitivity</source>
        <translation>Empfindlichkeit</translation>
    </message>
    <message>
        <source>Focal length</source>
        <extracomment>A length in millimetres.</extracomment>
        <translation>Brennweite</translation>
    </message>
    <message>
        <source>%1 mm</source>
        <translation>%1 mm</translation>
    </message>
    <message>
        <source>Correction</source>
        <extracomment>An exposure in stops, with its sign.</extracomment>
        <translation>Korrektur</translation>
    </message>
    <message>
        <source>%1 EV</source>
        <translation>%1 LW</translation>
    </message>
    <message>
        <source>Exposure time</source>
        <translation>Belichtungszeit</translation>
    </message>
</context>
<context>
    <name>PictureDecoder</name>
    <message>
        <source>no such file</source>
        <translation>diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>ist ein Ordner</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>no permission to read it</source>
        <translation>keine Berechtigung zum Lesen</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>not a picture</source>
        <translation>kein Bild</translation>
    </message>
    <message>
        <source>the picture is truncated or damaged</source>
        <translation>das Bild ist unvollständig oder beschädigt</translation>
    </message>
    <message>
        <source>the picture is too large (%1 x %2 pixels)</source>
        <translation>das Bild ist zu groß (%1 × %2 Pixel)</translation>
    </message>
    <message>
        <source>not enough memory for %1 x %2 pixels</source>
        <translation>zu wenig Arbeitsspeicher für %1 × %2 Pixel</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>zu wenig Arbeitsspeicher</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>%1, a kind of picture that this build does not read</source>
        <extracomment>%1 is the name of a file format, such as HEIC</extracomment>
        <translation>%1, eine Art von Bild, die diese Version nicht liest</translation>
    </message>
    <message>
        <source>the camera raw file cannot be converted: %1</source>
        <translation>die Rohdatei der Kamera lässt sich nicht umwandeln: %1</translation>
    </message>
</context>
<context>
    <name>PictureEncoder</name>
    <message>
        <source>JPEG files hold at most %1 pixels in a row or column</source>
        <translation>JPEG-Dateien fassen höchstens %1 Pixel in einer Zeile oder Spalte</translation>
    </message>
    <message>
        <source>the JPEG file could not be written</source>
        <translation>die JPEG-Datei konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>zu wenig Arbeitsspeicher</translation>
    </message>
    <message>
        <source>the PNG file could not be written</source>
        <translation>die PNG-Datei konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the OpenEXR file could not be written</source>
        <translation>die OpenEXR-Datei konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the Radiance file could not be written</source>
        <translation>die Radiance-Datei konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the TIFF file could not be written</source>
        <translation>die TIFF-Datei konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>this program was built without OpenEXR</source>
        <translation>dieses Programm wurde ohne OpenEXR gebaut</translation>
    </message>
    <message>
        <source>the AVIF file could not be written</source>
        <translation>die AVIF-Datei konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the JPEG XL file could not be written</source>
        <translation>die JPEG-XL-Datei konnte nicht geschrieben werden</translation>
    </message>
    <message>
        <source>this program was built without AVIF</source>
        <translation>dieses Programm wurde ohne AVIF gebaut</translation>
    </message>
    <message>
        <source>this program was built without JPEG XL</source>
        <translation>dieses Programm wurde ohne JPEG XL gebaut</translation>
    </message>
</context>
<context>
    <name>PictureRating</name>
    <message>
        <source>its XMP file cannot be read</source>
        <translation>seine XMP-Datei kann nicht gelesen werden</translation>
    </message>
</context>
<context>
    <name>PreviewBar</name>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>The reference as it was taken, while B or this is held</source>
        <translation>Der Bezug, wie er aufgenommen wurde, solange B oder dies gehalten wird</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>Geteilt</translation>
    </message>
    <message>
        <source>Before and after side by side; drag the line (S)</source>
        <translation>Vorher und nachher nebeneinander; die Linie lässt sich ziehen (S)</translation>
    </message>
    <message>
        <source>Blink</source>
        <translation>Blinken</translation>
    </message>
    <message>
        <source>The aligned shots, one after the other (K)</source>
        <translation>Die ausgerichteten Aufnahmen, eine nach der anderen (K)</translation>
    </message>
    <message>
        <source>Clipping</source>
        <translation>Clipping</translation>
    </message>
    <message>
        <source>Red where it is too bright, blue where it is too dark (C)</source>
        <translation>Rot, wo es zu hell ist, blau, wo es zu dunkel ist (C)</translation>
    </message>
    <message>
        <source>Loupe</source>
        <translation>Lupe</translation>
    </message>
    <message>
        <source>100 % around the pointer (L)</source>
        <translation>100 % um den Mauszeiger (L)</translation>
    </message>
    <message>
        <source>Fit</source>
        <extracomment>On a button: the picture as large as it fits.</extracomment>
        <translation>Anpassen</translation>
    </message>
    <message>
        <source>As large as it fits (Ctrl+0)</source>
        <translation>So groß, wie es passt (Strg+0)</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100&#xa0;%</translation>
    </message>
    <message>
        <source>Pixel for pixel (Ctrl+1)</source>
        <translation>Pixel für Pixel (Strg+1)</translation>
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
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>&amp;Liste leeren</translation>
    </message>
</context>
<context>
    <name>Recovery</name>
    <message>
        <source>the folder “%1” cannot be written</source>
        <translation>in den Ordner „%1“ kann nicht geschrieben werden</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>JPEG picture</source>
        <translation>JPEG-Bild</translation>
    </message>
    <message>
        <source>PNG picture</source>
        <translation>PNG-Bild</translation>
    </message>
    <message>
        <source>TIFF picture</source>
        <translation>TIFF-Bild</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>PNG picture, 16 bits per channel</source>
        <translation>PNG-Bild, 16 Bit je Kanal</translation>
    </message>
    <message>
        <source>PNG picture, 8 bits per channel</source>
        <translation>PNG-Bild, 8 Bit je Kanal</translation>
    </message>
    <message>
        <source>TIFF picture, 16 bits per channel</source>
        <translation>TIFF-Bild, 16 Bit je Kanal</translation>
    </message>
    <message>
        <source>TIFF picture, 8 bits per channel</source>
        <translation>TIFF-Bild, 8 Bit je Kanal</translation>
    </message>
</context>
<context>
    <name>ScreenColoursMenu</name>
    <message>
        <source>&amp;Screen Colours</source>
        <translation>&amp;Bildschirmfarben</translation>
    </message>
    <message>
        <source>&amp;sRGB (Most Screens)</source>
        <translation>&amp;sRGB (die meisten Bildschirme)</translation>
    </message>
    <message>
        <source>Colour profiles</source>
        <translation>Farbprofile</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>Profile of the Screen</source>
        <translation>Profil des Bildschirms</translation>
    </message>
    <message>
        <source>Screen Colours</source>
        <translation>Bildschirmfarben</translation>
    </message>
    <message>
        <source>“%1” is not a colour profile for a screen.</source>
        <translation>„%1“ ist kein Farbprofil für einen Bildschirm.</translation>
    </message>
    <message>
        <source>&amp;Profile File…</source>
        <translation>&amp;Profildatei…</translation>
    </message>
    <message>
        <source>&amp;Profile File: %1…</source>
        <translation>&amp;Profildatei: %1…</translation>
    </message>
</context>
<context>
    <name>SessionKeeper</name>
    <message>
        <source>Recovery</source>
        <translation>Wiederherstellung</translation>
    </message>
    <message>
        <source>Vesk did not end as it should. Unsaved changes were kept of:</source>
        <translation>Vesk wurde nicht ordentlich beendet. Nicht gespeicherte Änderungen sind erhalten von:</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>Could not be recovered: %1</source>
        <translation>Konnte nicht wiederhergestellt werden: %1</translation>
    </message>
    <message>
        <source>Unsaved changes cannot be kept for recovery: %1</source>
        <translation>Änderungen können nicht für die Wiederherstellung gesichert werden: %1</translation>
    </message>
</context>
<context>
    <name>ShotList</name>
    <message>
        <source>Shots</source>
        <translation>Aufnahmen</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Wird gelesen…</translation>
    </message>
    <message>
        <source>★ reference</source>
        <extracomment>The shot that the others are aligned to.</extracomment>
        <translation>★ Bezug</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Drop photographs or a folder here</source>
        <translation>Fotos oder einen Ordner hierher ziehen</translation>
    </message>
</context>
<context>
    <name>StraightenTool</name>
    <message>
        <source>Straighten</source>
        <translation>Geraderichten</translation>
    </message>
    <message>
        <source>Draw a line along the horizon, or along something upright</source>
        <translation>Eine Linie am Horizont ziehen, oder an etwas Senkrechtem</translation>
    </message>
</context>
<context>
    <name>ThemeMenu</name>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Farbschema</translation>
    </message>
    <message>
        <source>&amp;As the Desktop</source>
        <translation>Wie die &amp;Arbeitsumgebung</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
</context>
<context>
    <name>VeskActionManager</name>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
</context>
<context>
    <name>VeskProgressIndicator</name>
    <message>
        <source>Please wait</source>
        <translation>Bitte warten</translation>
    </message>
</context>
<context>
    <name>VeskRaw</name>
    <message>
        <source>Unspecified error</source>
        <translation>nicht näher bezeichneter Fehler</translation>
    </message>
    <message>
        <source>Unsupported file format or not RAW file</source>
        <translation>nicht unterstütztes Format oder keine RAW-Datei</translation>
    </message>
    <message>
        <source>Unsufficient memory</source>
        <translation>zu wenig Arbeitsspeicher</translation>
    </message>
    <message>
        <source>Corrupted data or unexpected EOF</source>
        <translation>beschädigte Daten oder unerwartetes Dateiende</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Ein-/Ausgabefehler</translation>
    </message>
    <message>
        <source>Cancelled by user callback</source>
        <translation>abgebrochen</translation>
    </message>
    <message>
        <source>Image too big for processing</source>
        <translation>das Bild ist zu groß</translation>
    </message>
    <message>
        <source>The picture has more pixels than allowed</source>
        <translation>das Bild hat mehr Pixel als erlaubt</translation>
    </message>
    <message>
        <source>The file is damaged</source>
        <translation>die Datei ist beschädigt</translation>
    </message>
    <message>
        <source>Not enough memory</source>
        <translation>zu wenig Arbeitsspeicher</translation>
    </message>
    <message>
        <source>The raw library failed</source>
        <translation>die RAW-Bibliothek ist gescheitert</translation>
    </message>
    <message>
        <source>The raw converter cannot be started</source>
        <translation>der RAW-Konverter lässt sich nicht starten</translation>
    </message>
    <message>
        <source>The raw converter ended before it was done</source>
        <translation>der RAW-Konverter endete, bevor er fertig war</translation>
    </message>
    <message>
        <source>The conversion took too long</source>
        <translation>die Umwandlung dauerte zu lange</translation>
    </message>
</context>
<context>
    <name>VeskTitleWidget</name>
    <message>
        <source>Minimize</source>
        <translation>Minimieren</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Clipping Warning</source>
        <translation>&amp;Beschnittwarnung</translation>
    </message>
    <message>
        <source>Side by &amp;Side</source>
        <translation>Neb&amp;eneinander</translation>
    </message>
    <message>
        <source>Show another document beside this one</source>
        <translation>Ein weiteres Dokument neben diesem zeigen</translation>
    </message>
    <message>
        <source>&amp;Lock Views</source>
        <translation>Ansichten ko&amp;ppeln</translation>
    </message>
    <message>
        <source>Zoom and place of both documents move together</source>
        <translation>Zoom und Ausschnitt beider Dokumente bewegen sich gemeinsam</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>Eine kleine Fotobearbeitung, die Belichtungsreihen zusammenfügt.</translation>
    </message>
    <message>
        <source>Merge these pictures.</source>
        <translation>Diese Bilder verschmelzen.</translation>
    </message>
    <message>
        <source>Pictures to open, or a folder to show.</source>
        <translation>Zu öffnende Bilder oder ein Ordner, der gezeigt werden soll.</translation>
    </message>
</context>
</TS>
