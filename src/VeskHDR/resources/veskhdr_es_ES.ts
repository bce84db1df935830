<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en_US">
<context>
    <name>PictureDecoder</name>
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
</context>
<context>
    <name>VeskOpenCLDeviceSelection</name>
    <message>
        <source>VeskOpenCLDeviceSelection</source>
        <translation>Seleccionar dispositivo OpenCL</translation>
    </message>
    <message>
        <source>OpenCL Platform</source>
        <translation>Plataforma OpenCL</translation>
    </message>
    <message>
        <source>OpenCL Device</source>
        <translation>Dispositivo OpenCL</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Propiedad</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valor</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>OpenCL Device Selection</source>
        <translation>Seleccionar dispositivo OpenCL</translation>
    </message>
    <message>
        <source>OpenCL Platform:</source>
        <translation>Plataforma OpenCL:</translation>
    </message>
    <message>
        <source>OpenCL Version:</source>
        <translation>Versión de OpenCL:</translation>
    </message>
    <message>
        <source>OpenCL Device Name</source>
        <translation>Nombre del dispositivo</translation>
    </message>
    <message>
        <source>OpenCL Device Vendor</source>
        <translation>Fabricante</translation>
    </message>
    <message>
        <source>OpenCL Device Driver Version</source>
        <translation>Versión del controlador</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Type</source>
        <translation>Caché global (tipo)</translation>
    </message>
    <message>
        <source>OpenCL Device Cores</source>
        <translation>Unidades de cálculo</translation>
    </message>
    <message>
        <source>OpenCL Device Frequency</source>
        <translation>Frecuencia</translation>
    </message>
    <message>
        <source>OpenCL Device Local Memory Size</source>
        <translation>Memoria local</translation>
    </message>
    <message>
        <source>OpenCL Device Global Memory Size</source>
        <translation>Memoria global</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Size</source>
        <translation>Caché global (tamaño)</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Line</source>
        <translation>Línea de caché (bytes)</translation>
    </message>
    <message>
        <source>OpenCL Device Image Support</source>
        <translation>Compatibilidad con imágenes</translation>
    </message>
    <message>
        <source>OpenCL Device Type</source>
        <translation>Tipo de dispositivo</translation>
    </message>
    <message>
        <source>OpenCL Device Extensions</source>
        <translation>Extensiones</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Ninguno</translation>
    </message>
    <message>
        <source>Read Only</source>
        <translation>Solo lectura</translation>
    </message>
    <message>
        <source>Read and Write</source>
        <translation>Lectura y escritura</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Disponible</translation>
    </message>
    <message>
        <source>No Support</source>
        <translation>No disponible</translation>
    </message>
</context>
<context>
    <name>VeskToolHDR</name>
    <message>
        <source>Alert</source>
        <translation>Alerta</translation>
    </message>
    <message>
        <source>This document has been modified. Save it?</source>
        <translation>Este documento se ha modificado. ¿Desea guardarlo?</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>No guardar</translation>
    </message>
    <message>
        <source>You can only add up to 5 pictures.</source>
        <translation>Puede añadir 5 imágenes como máximo.</translation>
    </message>
    <message>
        <source>%1 is not a valid image!</source>
        <translation>¡%1 no es una imagen válida!</translation>
    </message>
    <message>
        <source>Pictures shall be in same size.</source>
        <translation>Todas las imágenes deben tener el mismo tamaño.</translation>
    </message>
    <message>
        <source>HDR merge failed! Pictures shall be in same size.</source>
        <translation>¡Error al combinar en HDR! Todas las imágenes deben tener el mismo tamaño.</translation>
    </message>
    <message>
        <source>used: %1 ms</source>
        <translation>Tiempo empleado: %1 ms</translation>
    </message>
    <message>
        <source>layer</source>
        <translation>Capa</translation>
    </message>
</context>
<context>
    <name>VeskToolHDRWidget</name>
    <message>
        <source>Image files(</source>
        <translation>Archivos de imagen (</translation>
    </message>
    <message>
        <source>Open a image for HDR</source>
        <translation>Abrir imágenes para HDR</translation>
    </message>
    <message>
        <source>Use CUDA</source>
        <translatorcomment>No longer shown. Kept so that the catalogue stays complete.</translatorcomment>
        <translation>Usar CUDA</translation>
    </message>
</context>
<context>
    <name>VeskToolHDRWidgetClass</name>
    <message>
        <source>Merge to HDR</source>
        <translation>Combinar en HDR</translation>
    </message>
    <message>
        <source>Source Pictures</source>
        <translation>Imágenes de origen</translation>
    </message>
    <message>
        <source>Choose two or more pictures from a set of exposures to
merge and create a High Dynamic Range image.</source>
        <translation>Elija dos o más imágenes de una serie de exposiciones
para combinarlas en una imagen de alto rango dinámico (HDR).</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Examinar...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Opciones</translation>
    </message>
    <message>
        <source>Use OpenCL with</source>
        <translation>Usar OpenCL con</translation>
    </message>
    <message>
        <source>Changed device</source>
        <translation>Cambiar de dispositivo</translation>
    </message>
    <message>
        <source>Attempt to automatically align source images</source>
        <translation>Intentar alinear automáticamente las imágenes de origen</translation>
    </message>
</context>
</TS>
