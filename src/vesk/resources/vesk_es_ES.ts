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
    <name>Document</name>
    <message>
        <source>Background</source>
        <translation>Fondo</translation>
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
        <source>Merge pictures of one scene taken at different exposures</source>
        <translation>Combinar imágenes de una escena tomadas con distintas exposiciones</translation>
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
    <name>FilmStrip</name>
    <message>
        <source>No pictures in this folder</source>
        <translation>No hay imágenes en esta carpeta</translation>
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
        <source>&amp;View</source>
        <translation>&amp;Ver</translation>
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
        <source>the TIFF file could not be written</source>
        <translation>no se ha podido escribir el archivo TIFF</translation>
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
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Drop photographs or a folder here</source>
        <translation>Arrastre aquí fotografías o una carpeta</translation>
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
    <name>main</name>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>Un pequeño editor de fotos que combina series de exposiciones.</translation>
    </message>
    <message>
        <source>Pictures to open, or a folder to show.</source>
        <translation>Imágenes que abrir o carpeta que mostrar.</translation>
    </message>
</context>
</TS>
