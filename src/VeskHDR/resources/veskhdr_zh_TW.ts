<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW" sourcelanguage="en_US">
<context>
    <name>PictureDecoder</name>
    <message>
        <source>the picture is too large (%1 x %2 pixels)</source>
        <translation>影像太大 (%1 × %2 像素)</translation>
    </message>
    <message>
        <source>not enough memory for %1 x %2 pixels</source>
        <translation>記憶體不足，無法容納 %1 × %2 像素</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>記憶體不足</translation>
    </message>
</context>
<context>
    <name>VeskOpenCLDeviceSelection</name>
    <message>
        <source>VeskOpenCLDeviceSelection</source>
        <translation>選擇 OpenCL 裝置</translation>
    </message>
    <message>
        <source>OpenCL Platform</source>
        <translation>OpenCL 平台</translation>
    </message>
    <message>
        <source>OpenCL Device</source>
        <translation>OpenCL 裝置</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>屬性</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>確定</translation>
    </message>
    <message>
        <source>OpenCL Device Selection</source>
        <translation>選擇 OpenCL 裝置</translation>
    </message>
    <message>
        <source>OpenCL Platform:</source>
        <translation>OpenCL 平台：</translation>
    </message>
    <message>
        <source>OpenCL Version:</source>
        <translation>OpenCL 版本：</translation>
    </message>
    <message>
        <source>OpenCL Device Name</source>
        <translation>裝置名稱</translation>
    </message>
    <message>
        <source>OpenCL Device Vendor</source>
        <translation>裝置廠商</translation>
    </message>
    <message>
        <source>OpenCL Device Driver Version</source>
        <translation>驅動程式版本</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Type</source>
        <translation>全域快取類型</translation>
    </message>
    <message>
        <source>OpenCL Device Cores</source>
        <translation>運算單元數</translation>
    </message>
    <message>
        <source>OpenCL Device Frequency</source>
        <translation>時脈頻率</translation>
    </message>
    <message>
        <source>OpenCL Device Local Memory Size</source>
        <translation>區域記憶體大小</translation>
    </message>
    <message>
        <source>OpenCL Device Global Memory Size</source>
        <translation>全域記憶體大小</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Size</source>
        <translation>全域快取大小</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Line</source>
        <translation>快取行大小（位元組）</translation>
    </message>
    <message>
        <source>OpenCL Device Image Support</source>
        <translation>影像支援</translation>
    </message>
    <message>
        <source>OpenCL Device Type</source>
        <translation>裝置類型</translation>
    </message>
    <message>
        <source>OpenCL Device Extensions</source>
        <translation>擴充功能</translation>
    </message>
    <message>
        <source>None</source>
        <translation>無</translation>
    </message>
    <message>
        <source>Read Only</source>
        <translation>唯讀</translation>
    </message>
    <message>
        <source>Read and Write</source>
        <translation>讀寫</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>支援</translation>
    </message>
    <message>
        <source>No Support</source>
        <translation>不支援</translation>
    </message>
</context>
<context>
    <name>VeskToolHDR</name>
    <message>
        <source>Alert</source>
        <translation>提醒</translation>
    </message>
    <message>
        <source>This document has been modified. Save it?</source>
        <translation>此文件已修改。是否要儲存？</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>儲存</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>不儲存</translation>
    </message>
    <message>
        <source>You can only add up to 5 pictures.</source>
        <translation>最多只能加入 5 張影像。</translation>
    </message>
    <message>
        <source>%1 is not a valid image!</source>
        <translation>%1 不是有效的影像！</translation>
    </message>
    <message>
        <source>Pictures shall be in same size.</source>
        <translation>所有影像的尺寸必須相同。</translation>
    </message>
    <message>
        <source>HDR merge failed! Pictures shall be in same size.</source>
        <translation>HDR 合併失敗！所有影像的尺寸必須相同。</translation>
    </message>
    <message>
        <source>used: %1 ms</source>
        <translation>耗時：%1 毫秒</translation>
    </message>
    <message>
        <source>layer</source>
        <translation>圖層</translation>
    </message>
</context>
<context>
    <name>VeskToolHDRWidget</name>
    <message>
        <source>Image files(</source>
        <translation>影像檔案 (</translation>
    </message>
    <message>
        <source>Open a image for HDR</source>
        <translation>開啟要合併為 HDR 的影像</translation>
    </message>
    <message>
        <source>Use CUDA</source>
        <translatorcomment>No longer shown. Kept so that the catalogue stays complete.</translatorcomment>
        <translation>使用 CUDA</translation>
    </message>
</context>
<context>
    <name>VeskToolHDRWidgetClass</name>
    <message>
        <source>Merge to HDR</source>
        <translation>合併為 HDR</translation>
    </message>
    <message>
        <source>Source Pictures</source>
        <translation>來源影像</translation>
    </message>
    <message>
        <source>Choose two or more pictures from a set of exposures to
merge and create a High Dynamic Range image.</source>
        <translation>請從一組不同曝光的影像中選擇兩張以上，
合併成一張高動態範圍 (HDR) 影像。</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>瀏覽...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>確定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>選項</translation>
    </message>
    <message>
        <source>Use OpenCL with</source>
        <translation>使用 OpenCL</translation>
    </message>
    <message>
        <source>Changed device</source>
        <translation>變更裝置</translation>
    </message>
    <message>
        <source>Attempt to automatically align source images</source>
        <translation>嘗試自動對齊來源影像</translation>
    </message>
</context>
</TS>
