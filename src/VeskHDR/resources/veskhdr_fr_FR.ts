<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en_US">
<context>
    <name>PictureDecoder</name>
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
</context>
<context>
    <name>VeskOpenCLDeviceSelection</name>
    <message>
        <source>VeskOpenCLDeviceSelection</source>
        <translation>Sélection du périphérique OpenCL</translation>
    </message>
    <message>
        <source>OpenCL Platform</source>
        <translation>Plateforme OpenCL</translation>
    </message>
    <message>
        <source>OpenCL Device</source>
        <translation>Périphérique OpenCL</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Propriété</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>OpenCL Device Selection</source>
        <translation>Sélection du périphérique OpenCL</translation>
    </message>
    <message>
        <source>OpenCL Platform:</source>
        <translation>Plateforme OpenCL :</translation>
    </message>
    <message>
        <source>OpenCL Version:</source>
        <translation>Version d’OpenCL :</translation>
    </message>
    <message>
        <source>OpenCL Device Name</source>
        <translation>Nom du périphérique</translation>
    </message>
    <message>
        <source>OpenCL Device Vendor</source>
        <translation>Fabricant</translation>
    </message>
    <message>
        <source>OpenCL Device Driver Version</source>
        <translation>Version du pilote</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Type</source>
        <translation>Cache global (type)</translation>
    </message>
    <message>
        <source>OpenCL Device Cores</source>
        <translation>Unités de calcul</translation>
    </message>
    <message>
        <source>OpenCL Device Frequency</source>
        <translation>Fréquence</translation>
    </message>
    <message>
        <source>OpenCL Device Local Memory Size</source>
        <translation>Mémoire locale</translation>
    </message>
    <message>
        <source>OpenCL Device Global Memory Size</source>
        <translation>Mémoire globale</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Size</source>
        <translation>Cache global (taille)</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Line</source>
        <translation>Ligne de cache (octets)</translation>
    </message>
    <message>
        <source>OpenCL Device Image Support</source>
        <translation>Prise en charge des images</translation>
    </message>
    <message>
        <source>OpenCL Device Type</source>
        <translation>Type de périphérique</translation>
    </message>
    <message>
        <source>OpenCL Device Extensions</source>
        <translation>Extensions</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message>
        <source>Read Only</source>
        <translation>Lecture seule</translation>
    </message>
    <message>
        <source>Read and Write</source>
        <translation>Lecture et écriture</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>Disponible</translation>
    </message>
    <message>
        <source>No Support</source>
        <translation>Non disponible</translation>
    </message>
</context>
<context>
    <name>VeskToolHDR</name>
    <message>
        <source>Alert</source>
        <translation>Alerte</translation>
    </message>
    <message>
        <source>This document has been modified. Save it?</source>
        <translation>Ce document a été modifié. Voulez-vous l’enregistrer ?</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Ne pas enregistrer</translation>
    </message>
    <message>
        <source>You can only add up to 5 pictures.</source>
        <translation>Vous pouvez ajouter 5 images au maximum.</translation>
    </message>
    <message>
        <source>%1 is not a valid image!</source>
        <translation>%1 n’est pas une image valide !</translation>
    </message>
    <message>
        <source>Pictures shall be in same size.</source>
        <translation>Toutes les images doivent avoir la même taille.</translation>
    </message>
    <message>
        <source>HDR merge failed! Pictures shall be in same size.</source>
        <translation>Échec de la fusion HDR ! Toutes les images doivent avoir la même taille.</translation>
    </message>
    <message>
        <source>used: %1 ms</source>
        <translation>Temps de calcul : %1 ms</translation>
    </message>
    <message>
        <source>layer</source>
        <translation>Calque</translation>
    </message>
</context>
<context>
    <name>VeskToolHDRWidget</name>
    <message>
        <source>Image files(</source>
        <translation>Fichiers image (</translation>
    </message>
    <message>
        <source>Open a image for HDR</source>
        <translation>Ouvrir des images pour le HDR</translation>
    </message>
    <message>
        <source>Use CUDA</source>
        <translatorcomment>No longer shown. Kept so that the catalogue stays complete.</translatorcomment>
        <translation>Utiliser CUDA</translation>
    </message>
</context>
<context>
    <name>VeskToolHDRWidgetClass</name>
    <message>
        <source>Merge to HDR</source>
        <translation>Fusion HDR</translation>
    </message>
    <message>
        <source>Source Pictures</source>
        <translation>Images source</translation>
    </message>
    <message>
        <source>Choose two or more pictures from a set of exposures to
merge and create a High Dynamic Range image.</source>
        <translation>Choisissez au moins deux images d’une série d’expositions
à fusionner en une image HDR (High Dynamic Range).</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Parcourir...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Options</translation>
    </message>
    <message>
        <source>Use OpenCL with</source>
        <translation>Utiliser OpenCL avec</translation>
    </message>
    <message>
        <source>Changed device</source>
        <translation>Changer de périphérique</translation>
    </message>
    <message>
        <source>Attempt to automatically align source images</source>
        <translation>Tenter d’aligner automatiquement les images source</translation>
    </message>
</context>
</TS>
