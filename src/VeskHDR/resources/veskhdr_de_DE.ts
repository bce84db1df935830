<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>PictureDecoder</name>
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
</context>
<context>
    <name>VeskOpenCLDeviceSelection</name>
    <message>
        <source>VeskOpenCLDeviceSelection</source>
        <translation>OpenCL-Gerät auswählen</translation>
    </message>
    <message>
        <source>OpenCL Platform</source>
        <translation>OpenCL-Plattform</translation>
    </message>
    <message>
        <source>OpenCL Device</source>
        <translation>OpenCL-Gerät</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Eigenschaft</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>OpenCL Device Selection</source>
        <translation>OpenCL-Gerät auswählen</translation>
    </message>
    <message>
        <source>OpenCL Platform:</source>
        <translation>OpenCL-Plattform:</translation>
    </message>
    <message>
        <source>OpenCL Version:</source>
        <translation>OpenCL-Version:</translation>
    </message>
    <message>
        <source>OpenCL Device Name</source>
        <translation>Gerätename</translation>
    </message>
    <message>
        <source>OpenCL Device Vendor</source>
        <translation>Hersteller</translation>
    </message>
    <message>
        <source>OpenCL Device Driver Version</source>
        <translation>Treiberversion</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Type</source>
        <translation>Globaler Cache (Typ)</translation>
    </message>
    <message>
        <source>OpenCL Device Cores</source>
        <translation>Recheneinheiten</translation>
    </message>
    <message>
        <source>OpenCL Device Frequency</source>
        <translation>Taktfrequenz</translation>
    </message>
    <message>
        <source>OpenCL Device Local Memory Size</source>
        <translation>Lokaler Speicher</translation>
    </message>
    <message>
        <source>OpenCL Device Global Memory Size</source>
        <translation>Globaler Speicher</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Size</source>
        <translation>Globaler Cache (Größe)</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Line</source>
        <translation>Cachezeile (Byte)</translation>
    </message>
    <message>
        <source>OpenCL Device Image Support</source>
        <translation>Bildunterstützung</translation>
    </message>
    <message>
        <source>OpenCL Device Type</source>
        <translation>Gerätetyp</translation>
    </message>
    <message>
        <source>OpenCL Device Extensions</source>
        <translation>Erweiterungen</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keiner</translation>
    </message>
    <message>
        <source>Read Only</source>
        <translation>Nur Lesen</translation>
    </message>
    <message>
        <source>Read and Write</source>
        <translation>Lesen und Schreiben</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Vorhanden</translation>
    </message>
    <message>
        <source>No Support</source>
        <translation>Nicht vorhanden</translation>
    </message>
</context>
<context>
    <name>VeskToolHDR</name>
    <message>
        <source>Alert</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>This document has been modified. Save it?</source>
        <translation>Dieses Dokument wurde geändert. Möchten Sie es speichern?</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Nicht speichern</translation>
    </message>
    <message>
        <source>You can only add up to 5 pictures.</source>
        <translation>Sie können höchstens 5 Bilder hinzufügen.</translation>
    </message>
    <message>
        <source>%1 is not a valid image!</source>
        <translation>%1 ist kein gültiges Bild!</translation>
    </message>
    <message>
        <source>Pictures shall be in same size.</source>
        <translation>Alle Bilder müssen gleich groß sein.</translation>
    </message>
    <message>
        <source>HDR merge failed! Pictures shall be in same size.</source>
        <translation>Zusammenfügen zu HDR fehlgeschlagen! Alle Bilder müssen gleich groß sein.</translation>
    </message>
    <message>
        <source>used: %1 ms</source>
        <translation>Benötigte Zeit: %1 ms</translation>
    </message>
    <message>
        <source>layer</source>
        <translation>Ebene</translation>
    </message>
</context>
<context>
    <name>VeskToolHDRWidget</name>
    <message>
        <source>Image files(</source>
        <translation>Bilddateien (</translation>
    </message>
    <message>
        <source>Open a image for HDR</source>
        <translation>Bilder für HDR öffnen</translation>
    </message>
    <message>
        <source>Use CUDA</source>
        <translatorcomment>No longer shown. Kept so that the catalogue stays complete.</translatorcomment>
        <translation>CUDA verwenden</translation>
    </message>
</context>
<context>
    <name>VeskToolHDRWidgetClass</name>
    <message>
        <source>Merge to HDR</source>
        <translation>Zu HDR zusammenfügen</translation>
    </message>
    <message>
        <source>Source Pictures</source>
        <translation>Quellbilder</translation>
    </message>
    <message>
        <source>Choose two or more pictures from a set of exposures to
merge and create a High Dynamic Range image.</source>
        <translation>Wählen Sie zwei oder mehr Bilder einer Belichtungsreihe,
um daraus ein HDR-Bild (High Dynamic Range) zu erstellen.</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Durchsuchen...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Use OpenCL with</source>
        <translation>OpenCL verwenden mit</translation>
    </message>
    <message>
        <source>Changed device</source>
        <translation>Gerät wechseln</translation>
    </message>
    <message>
        <source>Attempt to automatically align source images</source>
        <translation>Versuchen, die Quellbilder automatisch auszurichten</translation>
    </message>
</context>
</TS>
