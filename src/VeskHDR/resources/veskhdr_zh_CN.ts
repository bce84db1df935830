<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>PictureDecoder</name>
    <message>
        <source>the picture is too large (%1 x %2 pixels)</source>
        <translation>图像太大 (%1 × %2 像素)</translation>
    </message>
    <message>
        <source>not enough memory for %1 x %2 pixels</source>
        <translation>内存不足，无法容纳 %1 × %2 像素</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>内存不足</translation>
    </message>
</context>
<context>
    <name>VeskOpenCLDeviceSelection</name>
    <message>
        <source>VeskOpenCLDeviceSelection</source>
        <translation>选择 OpenCL 设备</translation>
    </message>
    <message>
        <source>OpenCL Platform</source>
        <translation>OpenCL 平台</translation>
    </message>
    <message>
        <source>OpenCL Device</source>
        <translation>OpenCL 设备</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>属性</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>OpenCL Device Selection</source>
        <translation>选择 OpenCL 设备</translation>
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
        <translation>设备名称</translation>
    </message>
    <message>
        <source>OpenCL Device Vendor</source>
        <translation>设备厂商</translation>
    </message>
    <message>
        <source>OpenCL Device Driver Version</source>
        <translation>驱动程序版本</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Type</source>
        <translation>全局缓存类型</translation>
    </message>
    <message>
        <source>OpenCL Device Cores</source>
        <translation>计算单元数</translation>
    </message>
    <message>
        <source>OpenCL Device Frequency</source>
        <translation>时钟频率</translation>
    </message>
    <message>
        <source>OpenCL Device Local Memory Size</source>
        <translation>局部内存大小</translation>
    </message>
    <message>
        <source>OpenCL Device Global Memory Size</source>
        <translation>全局内存大小</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Size</source>
        <translation>全局缓存大小</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Line</source>
        <translation>缓存行大小（字节）</translation>
    </message>
    <message>
        <source>OpenCL Device Image Support</source>
        <translation>图像支持</translation>
    </message>
    <message>
        <source>OpenCL Device Type</source>
        <translation>设备类型</translation>
    </message>
    <message>
        <source>OpenCL Device Extensions</source>
        <translation>扩展</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Read Only</source>
        <translation>只读</translation>
    </message>
    <message>
        <source>Read and Write</source>
        <translation>读写</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>支持</translation>
    </message>
    <message>
        <source>No Support</source>
        <translation>不支持</translation>
    </message>
</context>
<context>
    <name>VeskToolHDR</name>
    <message>
        <source>Alert</source>
        <translation>提示</translation>
    </message>
    <message>
        <source>This document has been modified. Save it?</source>
        <translation>此文档已修改。是否保存？</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>不保存</translation>
    </message>
    <message>
        <source>You can only add up to 5 pictures.</source>
        <translation>最多只能添加 5 幅图像。</translation>
    </message>
    <message>
        <source>%1 is not a valid image!</source>
        <translation>%1 不是有效的图像！</translation>
    </message>
    <message>
        <source>Pictures shall be in same size.</source>
        <translation>所有图像的尺寸必须相同。</translation>
    </message>
    <message>
        <source>HDR merge failed! Pictures shall be in same size.</source>
        <translation>HDR 合并失败！所有图像的尺寸必须相同。</translation>
    </message>
    <message>
        <source>used: %1 ms</source>
        <translation>用时：%1 毫秒</translation>
    </message>
    <message>
        <source>layer</source>
        <translation>图层</translation>
    </message>
</context>
<context>
    <name>VeskToolHDRWidget</name>
    <message>
        <source>Image files(</source>
        <translation>图像文件 (</translation>
    </message>
    <message>
        <source>Open a image for HDR</source>
        <translation>打开要合并到 HDR 的图像</translation>
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
        <translation>合并到 HDR</translation>
    </message>
    <message>
        <source>Source Pictures</source>
        <translation>源图像</translation>
    </message>
    <message>
        <source>Choose two or more pictures from a set of exposures to
merge and create a High Dynamic Range image.</source>
        <translation>请从一组不同曝光的图像中选择两幅或更多，
合并成一幅高动态范围 (HDR) 图像。</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>Use OpenCL with</source>
        <translation>使用 OpenCL</translation>
    </message>
    <message>
        <source>Changed device</source>
        <translation>更改设备</translation>
    </message>
    <message>
        <source>Attempt to automatically align source images</source>
        <translation>尝试自动对齐源图像</translation>
    </message>
</context>
</TS>
