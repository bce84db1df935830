<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Vesk</source>
        <translation>Acerca de Vesk</translation>
    </message>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>Un pequeño editor de fotos que combina series de exposiciones.</translation>
    </message>
    <message>
        <source>Free software under the MIT licence. Built on Qt %1, LibRaw, libexif and OpenCL.</source>
        <translation>Software libre con licencia MIT. Creado con Qt %1, LibRaw, libexif y OpenCL.</translation>
    </message>
</context>
<context>
    <name>AdjustDock</name>
    <message>
        <source>Adjust</source>
        <translation>Ajustar</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>Exposición:</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>Contraste:</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>Luces:</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>Sombras:</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>Punto negro:</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>Punto blanco:</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>Saturación:</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Automático</translation>
    </message>
    <message>
        <source>Propose a look from how light and dark the picture is</source>
        <translation>Proponer ajustes según las luces y sombras de la imagen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Restablecer</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Comparar</translation>
    </message>
    <message>
        <source>Hold to see the picture without these changes</source>
        <translation>Mantener pulsado para ver la imagen sin estos cambios</translation>
    </message>
</context>
<context>
    <name>BatchWindow</name>
    <message>
        <source>&amp;Start</source>
        <translation>&amp;Iniciar</translation>
    </message>
    <message>
        <source>Sto&amp;p</source>
        <translation>&amp;Detener</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Merge Brackets</source>
        <translation>Fusionar series</translation>
    </message>
    <message>
        <source>&amp;Folder with shots:</source>
        <translation>&amp;Carpeta de tomas:</translation>
    </message>
    <message>
        <source>Cho&amp;ose…</source>
        <translation>&amp;Elegir…</translation>
    </message>
    <message>
        <source>Folder for res&amp;ults:</source>
        <translation>Carpeta de res&amp;ultados:</translation>
    </message>
    <message>
        <source>C&amp;hoose…</source>
        <translation>E&amp;legir…</translation>
    </message>
    <message>
        <source>For&amp;mat:</source>
        <translation>&amp;Formato:</translation>
    </message>
    <message>
        <source>Looking for brackets…</source>
        <translation>Buscando series…</translation>
    </message>
    <message>
        <source>%1 brackets to merge</source>
        <translation>Series por fusionar: %1</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>En pausa</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 de %2</translation>
    </message>
    <message>
        <source>%1 merged, %2 done already, %3 failed, %4 stopped</source>
        <translation>%1 fusionadas, %2 ya hechas, %3 con error, %4 detenidas</translation>
    </message>
    <message>
        <source>Fi&amp;nd Again</source>
        <translation>&amp;Buscar de nuevo</translation>
    </message>
    <message>
        <source>Finds the brackets of the folder anew, without your changes</source>
        <translation>Busca de nuevo las series de la carpeta, sin sus cambios</translation>
    </message>
    <message>
        <source>%1 of %2, about %3 left</source>
        <translation>%1 de %2, quedan unos %3</translation>
    </message>
    <message>
        <source>Show Resu&amp;lts</source>
        <translation>Mo&amp;strar resultados</translation>
    </message>
    <message>
        <source>Go O&amp;n</source>
        <translation>Con&amp;tinuar</translation>
    </message>
    <message>
        <source>Pau&amp;se</source>
        <translation>&amp;Pausar</translation>
    </message>
</context>
<context>
    <name>BracketBatch</name>
    <message>
        <source>another file of this name is there</source>
        <translation>ya hay otro archivo con ese nombre</translation>
    </message>
    <message>
        <source>another bracket gets the same name</source>
        <translation>otra serie recibe el mismo nombre</translation>
    </message>
</context>
<context>
    <name>BracketTable</name>
    <message>
        <source>waiting</source>
        <translation>en espera</translation>
    </message>
    <message>
        <source>Merging…</source>
        <translation>Fusionando…</translation>
    </message>
    <message>
        <source>merged</source>
        <translation>fusionada</translation>
    </message>
    <message>
        <source>done already</source>
        <translation>ya estaba hecha</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>con error</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>detenida</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 a %2</translation>
    </message>
    <message>
        <source>Bracket</source>
        <translation>Serie</translation>
    </message>
    <message>
        <source>Shots</source>
        <translation>Tomas</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>Brackets</source>
        <translation>Series</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>&amp;Join</source>
        <translation>&amp;Unir</translation>
    </message>
    <message>
        <source>Sp&amp;lit Here</source>
        <translation>&amp;Dividir aquí</translation>
    </message>
    <message>
        <source>Take Out or Put &amp;Back</source>
        <translation>&amp;Quitar o volver a poner</translation>
    </message>
    <message>
        <source>Makes one bracket of the selected brackets and shots</source>
        <translation>Hace una sola serie con las series y tomas seleccionadas</translation>
    </message>
    <message>
        <source>Begins another bracket with the selected shot</source>
        <translation>Comienza otra serie con la toma seleccionada</translation>
    </message>
    <message>
        <source>In no bracket</source>
        <translation>En ninguna serie</translation>
    </message>
</context>
<context>
    <name>BrushBar</name>
    <message>
        <source>Brush</source>
        <translation>Pincel</translation>
    </message>
    <message>
        <source>Paint over the preview which shot a part comes from (P)</source>
        <translation>Pintar sobre la vista previa de qué toma viene una parte (P)</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>Borrador</translation>
    </message>
    <message>
        <source>Erase what was painted (E, Alt, right button)</source>
        <translation>Borrar lo pintado (E, Alt, botón derecho)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Take the last stroke back (Ctrl+Z)</source>
        <translation>Deshacer el último trazo (Ctrl+Z)</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Vaciar</translation>
    </message>
    <message>
        <source>Take all strokes away</source>
        <translation>Quitar todos los trazos</translation>
    </message>
    <message>
        <source>Shot to paint with</source>
        <translation>Toma con la que pintar</translation>
    </message>
    <message>
        <source>What is painted comes from this shot. Shift and a click take what moved there, whole; Ctrl moves the picture.</source>
        <translation>Lo que se pinta viene de esta toma. Mayús y un clic toman entero lo que se movió allí; Ctrl desplaza la imagen.</translation>
    </message>
    <message>
        <source>Size of the brush</source>
        <translation>Tamaño del pincel</translation>
    </message>
    <message>
        <source>Size of the brush ([ and ])</source>
        <translation>Tamaño del pincel ([ y ])</translation>
    </message>
</context>
<context>
    <name>CropTool</name>
    <message>
        <source>Crop</source>
        <translation>Recortar</translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation>Proporción</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>Libre</translation>
    </message>
    <message>
        <source>As it is</source>
        <translation>Como la imagen</translation>
    </message>
    <message>
        <source>What all shots cover</source>
        <translation>Lo que cubren todas las tomas</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>Document</name>
    <message>
        <source>Background</source>
        <translation>Fondo</translation>
    </message>
    <message>
        <source>Show Layer</source>
        <translation>Mostrar capa</translation>
    </message>
    <message>
        <source>Hide Layer</source>
        <translation>Ocultar capa</translation>
    </message>
</context>
<context>
    <name>DocumentSaver</name>
    <message>
        <source>Unsaved Changes</source>
        <translation>Cambios sin guardar</translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <translation>¿Guardar los cambios en «%1»?</translation>
    </message>
    <message>
        <source>If you do not save them, they will be lost.</source>
        <translation>Si no los guarda, se perderán.</translation>
    </message>
    <message>
        <source>no layer is visible</source>
        <translation>no hay ninguna capa visible</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>No se ha guardado</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2.</source>
        <translation>No se ha podido guardar «%1»: %2.</translation>
    </message>
    <message>
        <source>The picture is still open, with all its changes. You can save it elsewhere.</source>
        <translation>La imagen sigue abierta con todos sus cambios. Puede guardarla en otro lugar.</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Guardar c&amp;omo…</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Sin título</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>no hay memoria suficiente</translation>
    </message>
    <message>
        <source>Show a layer in the list of layers, then save again.</source>
        <translation>Muestre una capa en la lista de capas y vuelva a guardar.</translation>
    </message>
    <message>
        <source>%1 documents have unsaved changes.</source>
        <translation>%1 documentos tienen cambios sin guardar.</translation>
    </message>
    <message>
        <source>&amp;Save All</source>
        <translation>&amp;Guardar todo</translation>
    </message>
    <message>
        <source>&amp;Discard All</source>
        <translation>&amp;Descartar todo</translation>
    </message>
    <message>
        <source>“%1” has been changed by another program.</source>
        <translation>Otro programa ha modificado «%1».</translation>
    </message>
    <message>
        <source>If you replace it, what was changed there is lost.</source>
        <translation>Si lo reemplaza, esos cambios se perderán.</translation>
    </message>
    <message>
        <source>“%1” holds a gain map: bright screens show it brighter.</source>
        <translation>«%1» contiene un mapa de ganancia: las pantallas brillantes lo muestran con más luz.</translation>
    </message>
    <message>
        <source>Vesk cannot keep that. The file would look the same on all screens from now on.</source>
        <translation>Vesk no puede conservarlo. A partir de ahora, el archivo se vería igual en todas las pantallas.</translation>
    </message>
    <message>
        <source>Replace the File?</source>
        <translation>¿Reemplazar el archivo?</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>&amp;Reemplazar</translation>
    </message>
</context>
<context>
    <name>DocumentTabBar</name>
    <message>
        <source>&amp;Close</source>
        <translation>C&amp;errar</translation>
    </message>
    <message>
        <source>Close &amp;Others</source>
        <translation>Cerrar las &amp;demás</translation>
    </message>
</context>
<context>
    <name>DocumentTabs</name>
    <message>
        <source>Untitled</source>
        <translation>Sin título</translation>
    </message>
    <message>
        <source>%1 •</source>
        <extracomment>A document with unsaved changes; %1 is its name.</extracomment>
        <translation>%1 •</translation>
    </message>
    <message>
        <source>All open documents</source>
        <translation>Todos los documentos abiertos</translation>
    </message>
    <message>
        <source>From the Other Side</source>
        <translation>Del otro lado</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Editar</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <extracomment>%1 is what the user did last, such as &quot;Crop&quot;.</extracomment>
        <translation>&amp;Deshacer</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rehacer</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copiar</translation>
    </message>
    <message>
        <source>&amp;Paste as Document</source>
        <translation>&amp;Pegar como documento</translation>
    </message>
    <message>
        <source>&amp;Straighten…</source>
        <translation>E&amp;nderezar…</translation>
    </message>
    <message>
        <source>Rotate &amp;Left</source>
        <translation>Girar a la &amp;izquierda</translation>
    </message>
    <message>
        <source>Rotate Ri&amp;ght</source>
        <translation>Girar a la derec&amp;ha</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>&amp;Deshacer: %1</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>&amp;Rehacer: %1</translation>
    </message>
    <message>
        <source>Pasted Picture</source>
        <extracomment>The name of a document from the clipboard.</extracomment>
        <translation>Imagen pegada</translation>
    </message>
    <message>
        <source>Cr&amp;op…</source>
        <translation>R&amp;ecortar…</translation>
    </message>
</context>
<context>
    <name>EditorActions</name>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Abrir…</translation>
    </message>
    <message>
        <source>Open &amp;Folder…</source>
        <translation>Abrir &amp;carpeta…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Salir</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>&amp;Acercar</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>A&amp;lejar</translation>
    </message>
    <message>
        <source>&amp;Fit to Window</source>
        <translation>A&amp;justar a la ventana</translation>
    </message>
    <message>
        <source>&amp;Actual Size (100 %)</source>
        <translation>&amp;Tamaño real (100&#xa0;%)</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Ajustar</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100&#xa0;%</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>&amp;Pantalla completa</translation>
    </message>
    <message>
        <source>&amp;Next Document</source>
        <translation>Documento &amp;siguiente</translation>
    </message>
    <message>
        <source>&amp;Previous Document</source>
        <translation>Documento a&amp;nterior</translation>
    </message>
    <message>
        <source>&amp;Merge to HDR…</source>
        <translation>&amp;Combinar en HDR…</translation>
    </message>
    <message>
        <source>&amp;About Vesk</source>
        <translation>&amp;Acerca de Vesk</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <extracomment>The tip of a button: the command, and the keys that do the same.</extracomment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Merge &amp;Exposures…</source>
        <translation>Fusionar &amp;exposiciones…</translation>
    </message>
    <message>
        <source>Align the selected shots and fuse them: preview, options, a new document</source>
        <translation>Alinear las tomas seleccionadas y fusionarlas: con vista previa y opciones, en un documento nuevo</translation>
    </message>
    <message>
        <source>Merge up to five shots by their weighted mean, in place of the document</source>
        <translation>Fusionar hasta cinco tomas por su media ponderada, en lugar del documento</translation>
    </message>
    <message>
        <source>Merge &amp;Brackets…</source>
        <translation>&amp;Fusionar series…</translation>
    </message>
    <message>
        <source>Find the brackets of a folder and merge them all, as Merge Exposures does</source>
        <translation>Buscar las series de una carpeta y fusionarlas todas, como «Fusionar exposiciones»</translation>
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
        <translation>Abriendo %1…</translation>
    </message>
    <message>
        <source>Opening %1 (%2 of %3)…</source>
        <translation>Abriendo %1 (%2 de %3)…</translation>
    </message>
</context>
<context>
    <name>Edits</name>
    <message>
        <source>Crop</source>
        <translation>Recortar</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Girar</translation>
    </message>
    <message>
        <source>Straighten</source>
        <translation>Enderezar</translation>
    </message>
    <message>
        <source>Adjust</source>
        <translation>Ajustar</translation>
    </message>
</context>
<context>
    <name>ExposureMergeCommand</name>
    <message>
        <source>%1 merged</source>
        <extracomment>The name of a merged picture; %1 is that of the shot it was made from.</extracomment>
        <translation>%1 fusionada</translation>
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
        <translation>%1 EV</translation>
    </message>
</context>
<context>
    <name>FilmStrip</name>
    <message>
        <source>No pictures in this folder</source>
        <translation>No hay imágenes en esta carpeta</translation>
    </message>
    <message>
        <source>Film Strip</source>
        <translation>Tira de imágenes</translation>
    </message>
</context>
<context>
    <name>FilmStripActions</name>
    <message>
        <source>&amp;Next Bracket</source>
        <translation>Serie &amp;siguiente</translation>
    </message>
    <message>
        <source>&amp;Previous Bracket</source>
        <translation>Serie &amp;anterior</translation>
    </message>
    <message>
        <source>Select &amp;All Pictures</source>
        <translation>Seleccionar &amp;todas las imágenes</translation>
    </message>
    <message>
        <source>&amp;Hide Merged Results</source>
        <translation>&amp;Ocultar imágenes fusionadas</translation>
    </message>
    <message>
        <source>&amp;Rating</source>
        <translation>&amp;Puntuación</translation>
    </message>
    <message>
        <source>&amp;Sort By</source>
        <translation>Or&amp;denar por</translation>
    </message>
    <message>
        <source>The rating of “%1” could not be saved: %2.</source>
        <extracomment>%1 is the name of a picture, %2 the reason.</extracomment>
        <translation>No se pudo guardar la puntuación de «%1»: %2.</translation>
    </message>
    <message>
        <source>No Stars</source>
        <translation>Sin estrellas</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Nombre</translation>
    </message>
    <message>
        <source>&amp;Time Taken</source>
        <translation>&amp;Fecha de la toma</translation>
    </message>
    <message>
        <source>There is no further bracket in this folder.</source>
        <translation>No hay más series en esta carpeta.</translation>
    </message>
    <message>
        <source>Bracket %1 of %2</source>
        <translation>Serie %1 de %2</translation>
    </message>
</context>
<context>
    <name>FilmStripModel</name>
    <message>
        <source>merged</source>
        <translation>fusionada</translation>
    </message>
    <message>
        <source>Bracket of %1, %2</source>
        <translation>Serie de %1, %2</translation>
    </message>
    <message>
        <source>A merged picture</source>
        <translation>Una imagen fusionada</translation>
    </message>
    <message>
        <source>bracket %1 of %2</source>
        <translation>serie %1 de %2</translation>
    </message>
    <message>
        <source>rated %1 of %2</source>
        <translation>puntuada con %1 de %2</translation>
    </message>
</context>
<context>
    <name>HdrCommand</name>
    <message>
        <source>Merge to HDR</source>
        <translation>Combinar en HDR</translation>
    </message>
    <message>
        <source>%1 pictures are selected, but at most %2 can be merged.</source>
        <translation>Hay %1 imágenes seleccionadas, pero se pueden combinar %2 como máximo.</translation>
    </message>
    <message>
        <source>Only these will be taken: %1</source>
        <translation>Solo se tomarán estas: %1</translation>
    </message>
</context>
<context>
    <name>HistogramDock</name>
    <message>
        <source>Histogram</source>
        <translation>Histograma</translation>
    </message>
    <message>
        <source>All channels</source>
        <translation>Todos los canales</translation>
    </message>
    <message>
        <source>Luminosity</source>
        <translation>Luminosidad</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rojo</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Verde</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Azul</translation>
    </message>
    <message>
        <source>Logarithmic</source>
        <translation>Logarítmico</translation>
    </message>
</context>
<context>
    <name>JpegQualityDialog</name>
    <message>
        <source>JPEG Quality</source>
        <translation>Calidad JPEG</translation>
    </message>
    <message>
        <source>&amp;Quality:</source>
        <translation>&amp;Calidad:</translation>
    </message>
    <message>
        <source>Low values give small files, high ones keep more detail. From about 95 on, losses are hard to see.</source>
        <translation>Los valores bajos dan archivos pequeños; los altos conservan más detalle. A partir de 95, aproximadamente, las pérdidas apenas se ven.</translation>
    </message>
    <message>
        <source>JPEG files cannot hold transparency: what is transparent becomes white.</source>
        <translation>Los archivos JPEG no admiten transparencia: lo transparente se vuelve blanco.</translation>
    </message>
</context>
<context>
    <name>LanguageMenu</name>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Idioma</translation>
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
        <translation>Marque la casilla para mostrar la capa</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Capas</translation>
    </message>
</context>
<context>
    <name>LightCommand</name>
    <message>
        <source>%1 developed</source>
        <translation>%1 revelada</translation>
    </message>
</context>
<context>
    <name>LightSaving</name>
    <message>
        <source>Radiance picture</source>
        <translation>Imagen Radiance</translation>
    </message>
    <message>
        <source>TIFF picture, floating point</source>
        <translation>Imagen TIFF, coma flotante</translation>
    </message>
    <message>
        <source>OpenEXR picture</source>
        <translation>Imagen OpenEXR</translation>
    </message>
    <message>
        <source>Save Light</source>
        <translation>Guardar la luz</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>No se ha guardado</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2.</source>
        <translation>No se ha podido guardar «%1»: %2.</translation>
    </message>
    <message>
        <source>files of this kind hold no light; choose .exr, .hdr or .tif</source>
        <translation>los archivos de este tipo no contienen luz; elija .exr, .hdr o .tif</translation>
    </message>
    <message>
        <source>JPEG picture that bright screens show brighter</source>
        <translation>Imagen JPEG que las pantallas brillantes muestran más clara</translation>
    </message>
    <message>
        <source>AVIF picture for bright screens</source>
        <translation>Imagen AVIF para pantallas brillantes</translation>
    </message>
    <message>
        <source>JPEG XL picture for bright screens</source>
        <translation>Imagen JPEG XL para pantallas brillantes</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>no hay memoria suficiente</translation>
    </message>
</context>
<context>
    <name>LightWindow</name>
    <message>
        <source>Exposure</source>
        <translation>Exposición</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>&amp;Method:</source>
        <translation>&amp;Método:</translation>
    </message>
    <message>
        <source>&amp;Exposure:</source>
        <translation>&amp;Exposición:</translation>
    </message>
    <message>
        <source>%1 — Light</source>
        <translation>%1 — Luz</translation>
    </message>
    <message>
        <source>Mar&amp;k what is brighter than white</source>
        <translation>Mar&amp;car lo que es más claro que el blanco</translation>
    </message>
    <message>
        <source>&amp;Save Light…</source>
        <translation>&amp;Guardar la luz…</translation>
    </message>
    <message>
        <source>&amp;Develop</source>
        <translation>&amp;Revelar</translation>
    </message>
    <message>
        <source>As one shot shows it</source>
        <translation>Como la muestra una toma</translation>
    </message>
    <message>
        <source>One curve for all of it</source>
        <translation>Una curva para todo</translation>
    </message>
    <message>
        <source>Each place at its best</source>
        <translation>Cada zona a su mejor luz</translation>
    </message>
    <message>
        <source>There is not enough memory to show this.</source>
        <translation>No hay memoria suficiente para mostrarlo.</translation>
    </message>
    <message>
        <source>Not Developed</source>
        <translation>No revelada</translation>
    </message>
    <message>
        <source>There is not enough memory for a picture of this size.</source>
        <translation>No hay memoria suficiente para una imagen de este tamaño.</translation>
    </message>
    <message>
        <source>Developing…</source>
        <translation>Revelando…</translation>
    </message>
    <message>
        <source>Light Not Saved</source>
        <translation>Luz sin guardar</translation>
    </message>
    <message>
        <source>The light is in no file yet. Close it without saving?</source>
        <translation>La luz aún no está en ningún archivo. ¿Cerrarla sin guardar?</translation>
    </message>
</context>
<context>
    <name>LookBox</name>
    <message>
        <source>Look</source>
        <translation>Aspecto</translation>
    </message>
    <message>
        <source>Aut&amp;o</source>
        <translation>Aut&amp;omático</translation>
    </message>
    <message>
        <source>A look that suits the picture, to begin with</source>
        <translation>Un aspecto adecuado a la imagen, para empezar</translation>
    </message>
    <message>
        <source>Rese&amp;t</source>
        <translation>Resta&amp;blecer</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>Exposición:</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>Luces:</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>Sombras:</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>Contraste:</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>Punto negro:</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>Punto blanco:</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>Saturación:</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Film Strip</source>
        <translation>Tira de imágenes</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Archivo</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Herramientas</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>&amp;Configuración</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Ay&amp;uda</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Idioma</translation>
    </message>
    <message>
        <source>Vesk will speak this language when it is started again: %1</source>
        <translation>Vesk usará este idioma la próxima vez que se inicie: %1</translation>
    </message>
    <message>
        <source>Tool Bar</source>
        <translation>Barra de herramientas</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>Se ha guardado %1</translation>
    </message>
    <message>
        <source>Film Strip — %1</source>
        <translation>Tira de imágenes — %1</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Imágenes</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Todos los archivos</translation>
    </message>
    <message>
        <source>Open Pictures</source>
        <translation>Abrir imágenes</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Abrir carpeta</translation>
    </message>
    <message>
        <source>%1[*] — Vesk</source>
        <translation>%1[*] — Vesk</translation>
    </message>
    <message>
        <source>Fusion with preview</source>
        <translation>Fusión con vista previa</translation>
    </message>
    <message>
        <source>Weighted mean of up to five</source>
        <translation>Media ponderada de hasta cinco</translation>
    </message>
    <message>
        <source>&amp;Pictures</source>
        <translation>&amp;Imágenes</translation>
    </message>
</context>
<context>
    <name>MergeOptionsPanel</name>
    <message>
        <source>C&amp;rop to what all shots cover</source>
        <translation>&amp;Recortar al área común</translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>Fusión</translation>
    </message>
    <message>
        <source>Exposure fusion</source>
        <translation>Fusión de exposiciones</translation>
    </message>
    <message>
        <source>Mean (as Merge to HDR)</source>
        <translation>Media (como «Combinar en HDR»)</translation>
    </message>
    <message>
        <source>&amp;Alignment:</source>
        <translation>&amp;Alineación:</translation>
    </message>
    <message>
        <source>&amp;Ghosts:</source>
        <extracomment>What moved between the shots.</extracomment>
        <translation>Fa&amp;ntasmas:</translation>
    </message>
    <message>
        <source>Remove, automatically</source>
        <translation>Quitar automáticamente</translation>
    </message>
    <message>
        <source>Leave them in</source>
        <translation>Dejarlos</translation>
    </message>
    <message>
        <source>From %1</source>
        <extracomment>%1 is the name of a shot.</extracomment>
        <translation>De %1</translation>
    </message>
    <message>
        <source>Perspective</source>
        <translation>Perspectiva</translation>
    </message>
    <message>
        <source>Whole pixels</source>
        <translation>Píxeles enteros</translation>
    </message>
    <message>
        <source>None (tripod)</source>
        <translation>Ninguna (trípode)</translation>
    </message>
    <message>
        <source>Light of the scene</source>
        <translation>Luz de la escena</translation>
    </message>
    <message>
        <source>M&amp;ethod:</source>
        <translation>&amp;Método:</translation>
    </message>
</context>
<context>
    <name>MergePreview</name>
    <message>
        <source>Preview</source>
        <translation>Vista previa</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Antes</translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>Un momento…</translation>
    </message>
</context>
<context>
    <name>MergeTexts</name>
    <message>
        <source>it is too small</source>
        <translation>es demasiado pequeña</translation>
    </message>
    <message>
        <source>it shows too little detail</source>
        <translation>muestra muy poco detalle</translation>
    </message>
    <message>
        <source>it does not match the others</source>
        <translation>no encaja con las demás</translation>
    </message>
    <message>
        <source>Reading the pictures…</source>
        <translation>Leyendo las imágenes…</translation>
    </message>
    <message>
        <source>Aligning…</source>
        <translation>Alineando…</translation>
    </message>
    <message>
        <source>Looking for what moved…</source>
        <translation>Buscando lo que se movió…</translation>
    </message>
    <message>
        <source>Merging…</source>
        <translation>Fusionando…</translation>
    </message>
    <message>
        <source>At most %1 pictures can be merged.</source>
        <translation>Se pueden fusionar como máximo %1 imágenes.</translation>
    </message>
    <message>
        <source>The pictures have different sizes.</source>
        <translation>Las imágenes tienen tamaños distintos.</translation>
    </message>
    <message>
        <source>Nothing is left to crop to: the pictures do not overlap.</source>
        <translation>No queda nada que recortar: las imágenes no se solapan.</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>No hay memoria suficiente.</translation>
    </message>
    <message>
        <source>“%1” could not be read: %2.</source>
        <extracomment>A file, and why it could not be read.</extracomment>
        <translation>No se pudo leer «%1»: %2.</translation>
    </message>
    <message>
        <source>“%1” (%2 pixels) has not the size of “%3” (%4 pixels).</source>
        <translation>«%1» (%2 píxeles) no tiene el tamaño de «%3» (%4 píxeles).</translation>
    </message>
    <message>
        <source>left unaligned: %1</source>
        <translation>sin alinear: %1</translation>
    </message>
    <message>
        <source>lies as it is</source>
        <translation>ya está en su sitio</translation>
    </message>
    <message>
        <source>aligned, %1 % sure</source>
        <extracomment>How far an alignment can be trusted, in percent.</extracomment>
        <translation>alineada, %1 % de confianza</translation>
    </message>
    <message>
        <source>%1 was left unaligned: %2.</source>
        <translation>%1 se dejó sin alinear: %2.</translation>
    </message>
    <message>
        <source>A painted part does not belong to these pictures.</source>
        <translation>Una parte pintada no pertenece a estas imágenes.</translation>
    </message>
</context>
<context>
    <name>MergeWorkspace</name>
    <message>
        <source>A&amp;dd Shots…</source>
        <translation>Aña&amp;dir tomas…</translation>
    </message>
    <message>
        <source>&amp;Use as Reference</source>
        <translation>&amp;Usar como referencia</translation>
    </message>
    <message>
        <source>&amp;Merge</source>
        <translation>&amp;Fusionar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Merge Exposures</source>
        <translation>Fusionar exposiciones</translation>
    </message>
    <message>
        <source>S&amp;hots:</source>
        <translation>&amp;Tomas:</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Imágenes</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Todos los archivos</translation>
    </message>
    <message>
        <source>Add Shots</source>
        <translation>Añadir tomas</translation>
    </message>
    <message>
        <source>Add two or more shots of one scene, or drop them here.</source>
        <translation>Añada dos o más tomas de una escena, o suéltelas aquí.</translation>
    </message>
    <message>
        <source>Aligned: %1 of %2</source>
        <translation>Alineadas: %1 de %2</translation>
    </message>
    <message>
        <source>Choose Reference A&amp;utomatically</source>
        <translation>Referencia a&amp;utomática</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Not Merged</source>
        <translation>No fusionado</translation>
    </message>
    <message>
        <source>&amp;Next Bracket</source>
        <translation>Serie &amp;siguiente</translation>
    </message>
    <message>
        <source>Merge Exposures — bracket %1 of %2</source>
        <translation>Fusionar exposiciones — serie %1 de %2</translation>
    </message>
    <message>
        <source>Sharpening…</source>
        <translation>Afinando…</translation>
    </message>
</context>
<context>
    <name>OpenFailureBox</name>
    <message>
        <source>“%1”: %2</source>
        <extracomment>A file, and why it could not be opened.</extracomment>
        <translation>«%1»: %2</translation>
    </message>
    <message>
        <source>This file could not be opened:</source>
        <translation>No se ha podido abrir este archivo:</translation>
    </message>
    <message numerus="yes">
        <source>%n files could not be opened:</source>
        <translation>
            <numerusform>No se ha podido abrir %n archivo:</numerusform>
            <numerusform>No se han podido abrir %n archivos:</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Opened</source>
        <translation>No se ha abierto</translation>
    </message>
</context>
<context>
    <name>OutputFile</name>
    <message>
        <source>Permission denied</source>
        <translation>permiso denegado</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>se ha superado la cuota de disco</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>no queda espacio en el dispositivo</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>el sistema de archivos es de solo lectura</translation>
    </message>
    <message>
        <source>there is no such folder</source>
        <translation>esa carpeta no existe</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>es una carpeta</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>no es un archivo normal</translation>
    </message>
    <message>
        <source>the file exists already</source>
        <translation>el archivo ya existe</translation>
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
        <translation>Fotografía</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Cámara</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>Objetivo</translation>
    </message>
    <message>
        <source>Taken</source>
        <translation>Tomada</translation>
    </message>
    <message>
        <source>Aperture</source>
        <translation>Apertura</translation>
    </message>
    <message>
        <source>Sensitivity</source>
        <translation>Sensibilidad</translation>
    </message>
    <message>
        <source>Focal length</source>
        <extracomment>A length in millimetres.</extracomment>
        <translation>Distancia focal</translation>
    </message>
    <message>
        <source>%1 mm</source>
        <translation>%1 mm</translation>
    </message>
    <message>
        <source>Correction</source>
        <extracomment>An exposure in stops, with its sign.</extracomment>
        <translation>Corrección</translation>
    </message>
    <message>
        <source>%1 EV</source>
        <translation>%1 EV</translation>
    </message>
    <message>
        <source>Exposure time</source>
        <translation>Tiempo de exposición</translation>
    </message>
</context>
<context>
    <name>PictureDecoder</name>
    <message>
        <source>no such file</source>
        <translation>el archivo no existe</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>es una carpeta</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>no es un archivo normal</translation>
    </message>
    <message>
        <source>no permission to read it</source>
        <translation>no tiene permiso para leerlo</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>no se puede leer</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>el archivo está vacío</translation>
    </message>
    <message>
        <source>not a picture</source>
        <translation>no es una imagen</translation>
    </message>
    <message>
        <source>the picture is truncated or damaged</source>
        <translation>la imagen está incompleta o dañada</translation>
    </message>
    <message>
        <source>the picture is too large (%1 x %2 pixels)</source>
        <translation>la imagen es demasiado grande (%1 × %2 píxeles)</translation>
    </message>
    <message>
        <source>not enough memory for %1 x %2 pixels</source>
        <translation>no hay memoria suficiente para %1 × %2 píxeles</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>no hay memoria suficiente</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>cancelado</translation>
    </message>
    <message>
        <source>%1, a kind of picture that this build does not read</source>
        <extracomment>%1 is the name of a file format, such as HEIC</extracomment>
        <translation>%1, un tipo de imagen que esta versión no lee</translation>
    </message>
    <message>
        <source>the camera raw file cannot be converted: %1</source>
        <translation>no se puede convertir el archivo RAW de la cámara: %1</translation>
    </message>
</context>
<context>
    <name>PictureEncoder</name>
    <message>
        <source>JPEG files hold at most %1 pixels in a row or column</source>
        <translation>los archivos JPEG admiten como máximo %1 píxeles por fila o columna</translation>
    </message>
    <message>
        <source>the JPEG file could not be written</source>
        <translation>no se ha podido escribir el archivo JPEG</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>no hay memoria suficiente</translation>
    </message>
    <message>
        <source>the PNG file could not be written</source>
        <translation>no se ha podido escribir el archivo PNG</translation>
    </message>
    <message>
        <source>the OpenEXR file could not be written</source>
        <translation>no se ha podido escribir el archivo OpenEXR</translation>
    </message>
    <message>
        <source>the Radiance file could not be written</source>
        <translation>no se ha podido escribir el archivo Radiance</translation>
    </message>
    <message>
        <source>the TIFF file could not be written</source>
        <translation>no se ha podido escribir el archivo TIFF</translation>
    </message>
    <message>
        <source>this program was built without OpenEXR</source>
        <translation>este programa se compiló sin OpenEXR</translation>
    </message>
    <message>
        <source>the AVIF file could not be written</source>
        <translation>no se ha podido escribir el archivo AVIF</translation>
    </message>
    <message>
        <source>the JPEG XL file could not be written</source>
        <translation>no se ha podido escribir el archivo JPEG XL</translation>
    </message>
    <message>
        <source>this program was built without AVIF</source>
        <translation>este programa se compiló sin AVIF</translation>
    </message>
    <message>
        <source>this program was built without JPEG XL</source>
        <translation>este programa se compiló sin JPEG XL</translation>
    </message>
</context>
<context>
    <name>PictureRating</name>
    <message>
        <source>its XMP file cannot be read</source>
        <translation>no se puede leer su archivo XMP</translation>
    </message>
</context>
<context>
    <name>PreviewBar</name>
    <message>
        <source>Before</source>
        <translation>Antes</translation>
    </message>
    <message>
        <source>The reference as it was taken, while B or this is held</source>
        <translation>La referencia tal como se tomó, mientras se mantiene B o este botón</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>Dividir</translation>
    </message>
    <message>
        <source>Before and after side by side; drag the line (S)</source>
        <translation>Antes y después, lado a lado; arrastre la línea (S)</translation>
    </message>
    <message>
        <source>Blink</source>
        <translation>Alternar</translation>
    </message>
    <message>
        <source>The aligned shots, one after the other (K)</source>
        <translation>Las tomas alineadas, una tras otra (K)</translation>
    </message>
    <message>
        <source>Clipping</source>
        <translation>Recorte</translation>
    </message>
    <message>
        <source>Red where it is too bright, blue where it is too dark (C)</source>
        <translation>Rojo donde está quemado, azul donde está negro (C)</translation>
    </message>
    <message>
        <source>Loupe</source>
        <translation>Lupa</translation>
    </message>
    <message>
        <source>100 % around the pointer (L)</source>
        <translation>100 % alrededor del puntero (L)</translation>
    </message>
    <message>
        <source>Fit</source>
        <extracomment>On a button: the picture as large as it fits.</extracomment>
        <translation>Ajustar</translation>
    </message>
    <message>
        <source>As large as it fits (Ctrl+0)</source>
        <translation>Tan grande como quepa (Ctrl+0)</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100&#xa0;%</translation>
    </message>
    <message>
        <source>Pixel for pixel (Ctrl+1)</source>
        <translation>Píxel a píxel (Ctrl+1)</translation>
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
        <translation>Abrir &amp;reciente</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>&amp;Borrar lista</translation>
    </message>
</context>
<context>
    <name>Recovery</name>
    <message>
        <source>the folder “%1” cannot be written</source>
        <translation>no se puede escribir en la carpeta «%1»</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>JPEG picture</source>
        <translation>Imagen JPEG</translation>
    </message>
    <message>
        <source>PNG picture</source>
        <translation>Imagen PNG</translation>
    </message>
    <message>
        <source>TIFF picture</source>
        <translation>Imagen TIFF</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Guardar como</translation>
    </message>
    <message>
        <source>PNG picture, 16 bits per channel</source>
        <translation>Imagen PNG, 16 bits por canal</translation>
    </message>
    <message>
        <source>PNG picture, 8 bits per channel</source>
        <translation>Imagen PNG, 8 bits por canal</translation>
    </message>
    <message>
        <source>TIFF picture, 16 bits per channel</source>
        <translation>Imagen TIFF, 16 bits por canal</translation>
    </message>
    <message>
        <source>TIFF picture, 8 bits per channel</source>
        <translation>Imagen TIFF, 8 bits por canal</translation>
    </message>
</context>
<context>
    <name>ScreenColoursMenu</name>
    <message>
        <source>&amp;Screen Colours</source>
        <translation>&amp;Colores de la pantalla</translation>
    </message>
    <message>
        <source>&amp;sRGB (Most Screens)</source>
        <translation>&amp;sRGB (la mayoría de las pantallas)</translation>
    </message>
    <message>
        <source>Colour profiles</source>
        <translation>Perfiles de color</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Todos los archivos</translation>
    </message>
    <message>
        <source>Profile of the Screen</source>
        <translation>Perfil de la pantalla</translation>
    </message>
    <message>
        <source>Screen Colours</source>
        <translation>Colores de la pantalla</translation>
    </message>
    <message>
        <source>“%1” is not a colour profile for a screen.</source>
        <translation>«%1» no es un perfil de color para pantallas.</translation>
    </message>
    <message>
        <source>&amp;Profile File…</source>
        <translation>&amp;Archivo de perfil…</translation>
    </message>
    <message>
        <source>&amp;Profile File: %1…</source>
        <translation>&amp;Archivo de perfil: %1…</translation>
    </message>
</context>
<context>
    <name>SessionKeeper</name>
    <message>
        <source>Recovery</source>
        <translation>Recuperación</translation>
    </message>
    <message>
        <source>Vesk did not end as it should. Unsaved changes were kept of:</source>
        <translation>Vesk no se cerró correctamente. Se conservan cambios sin guardar de:</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>&amp;Recuperar</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Más tarde</translation>
    </message>
    <message>
        <source>Could not be recovered: %1</source>
        <translation>No se pudo recuperar: %1</translation>
    </message>
    <message>
        <source>Unsaved changes cannot be kept for recovery: %1</source>
        <translation>No se pueden conservar los cambios para su recuperación: %1</translation>
    </message>
</context>
<context>
    <name>ShotList</name>
    <message>
        <source>Shots</source>
        <translation>Tomas</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Leyendo…</translation>
    </message>
    <message>
        <source>★ reference</source>
        <extracomment>The shot that the others are aligned to.</extracomment>
        <translation>★ referencia</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Drop photographs or a folder here</source>
        <translation>Arrastre aquí fotografías o una carpeta</translation>
    </message>
</context>
<context>
    <name>StraightenTool</name>
    <message>
        <source>Straighten</source>
        <translation>Enderezar</translation>
    </message>
    <message>
        <source>Draw a line along the horizon, or along something upright</source>
        <translation>Trace una línea a lo largo del horizonte o de algo vertical</translation>
    </message>
</context>
<context>
    <name>ThemeMenu</name>
    <message>
        <source>&amp;Theme</source>
        <translation>&amp;Tema</translation>
    </message>
    <message>
        <source>&amp;As the Desktop</source>
        <translation>Como el &amp;escritorio</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Oscuro</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Claro</translation>
    </message>
</context>
<context>
    <name>VeskActionManager</name>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Guardar</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>Guardar c&amp;omo…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>C&amp;errar</translation>
    </message>
</context>
<context>
    <name>VeskProgressIndicator</name>
    <message>
        <source>Please wait</source>
        <translation>Espere, por favor</translation>
    </message>
</context>
<context>
    <name>VeskRaw</name>
    <message>
        <source>Unspecified error</source>
        <translation>error no especificado</translation>
    </message>
    <message>
        <source>Unsupported file format or not RAW file</source>
        <translation>formato no admitido o no es un archivo RAW</translation>
    </message>
    <message>
        <source>Unsufficient memory</source>
        <translation>no hay memoria suficiente</translation>
    </message>
    <message>
        <source>Corrupted data or unexpected EOF</source>
        <translation>datos dañados o fin de archivo inesperado</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>error de entrada/salida</translation>
    </message>
    <message>
        <source>Cancelled by user callback</source>
        <translation>cancelado</translation>
    </message>
    <message>
        <source>Image too big for processing</source>
        <translation>la imagen es demasiado grande</translation>
    </message>
    <message>
        <source>The picture has more pixels than allowed</source>
        <translation>la imagen tiene más píxeles de los permitidos</translation>
    </message>
    <message>
        <source>The file is damaged</source>
        <translation>el archivo está dañado</translation>
    </message>
    <message>
        <source>Not enough memory</source>
        <translation>no hay memoria suficiente</translation>
    </message>
    <message>
        <source>The raw library failed</source>
        <translation>la biblioteca RAW ha fallado</translation>
    </message>
    <message>
        <source>The raw converter cannot be started</source>
        <translation>no se puede iniciar el conversor RAW</translation>
    </message>
    <message>
        <source>The raw converter ended before it was done</source>
        <translation>el conversor RAW terminó antes de acabar</translation>
    </message>
    <message>
        <source>The conversion took too long</source>
        <translation>la conversión tardó demasiado</translation>
    </message>
</context>
<context>
    <name>VeskTitleWidget</name>
    <message>
        <source>Minimize</source>
        <translation>Minimizar</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Maximizar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
    </message>
    <message>
        <source>&amp;Clipping Warning</source>
        <translation>Aviso de &amp;recorte</translation>
    </message>
    <message>
        <source>Side by &amp;Side</source>
        <translation>Lado a la&amp;do</translation>
    </message>
    <message>
        <source>Show another document beside this one</source>
        <translation>Mostrar otro documento junto a este</translation>
    </message>
    <message>
        <source>&amp;Lock Views</source>
        <translation>&amp;Vincular vistas</translation>
    </message>
    <message>
        <source>Zoom and place of both documents move together</source>
        <translation>El zoom y la posición de ambos documentos se mueven juntos</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>Un pequeño editor de fotos que combina series de exposiciones.</translation>
    </message>
    <message>
        <source>Merge these pictures.</source>
        <translation>Fusionar estas imágenes.</translation>
    </message>
    <message>
        <source>Pictures to open, or a folder to show.</source>
        <translation>Imágenes que abrir o carpeta que mostrar.</translation>
    </message>
</context>
</TS>
