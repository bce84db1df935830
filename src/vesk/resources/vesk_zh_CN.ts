<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Vesk</source>
        <translation>关于 Vesk</translation>
    </message>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>一款小巧的照片编辑器，可合并包围曝光的照片。</translation>
    </message>
    <message>
        <source>Free software under the MIT licence. Built on Qt %1, LibRaw, libexif and OpenCL.</source>
        <translation>采用 MIT 许可证的自由软件。基于 Qt %1、LibRaw、libexif 和 OpenCL。</translation>
    </message>
</context>
<context>
    <name>AdjustDock</name>
    <message>
        <source>Adjust</source>
        <translation>调整</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>曝光：</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>对比度：</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>高光：</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>阴影：</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>黑场：</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>白场：</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>饱和度：</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>自动</translation>
    </message>
    <message>
        <source>Propose a look from how light and dark the picture is</source>
        <translation>根据图片的明暗提出调整建议</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>重置</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>对比</translation>
    </message>
    <message>
        <source>Hold to see the picture without these changes</source>
        <translation>按住可查看没有这些更改的图片</translation>
    </message>
</context>
<context>
    <name>BatchWindow</name>
    <message>
        <source>&amp;Start</source>
        <translation>开始(&amp;S)</translation>
    </message>
    <message>
        <source>Sto&amp;p</source>
        <translation>停止(&amp;P)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Merge Brackets</source>
        <translation>合成包围曝光</translation>
    </message>
    <message>
        <source>&amp;Folder with shots:</source>
        <translation>照片文件夹(&amp;F)：</translation>
    </message>
    <message>
        <source>Cho&amp;ose…</source>
        <translation>选择(&amp;O)…</translation>
    </message>
    <message>
        <source>Folder for res&amp;ults:</source>
        <translation>结果文件夹(&amp;U)：</translation>
    </message>
    <message>
        <source>C&amp;hoose…</source>
        <translation>选择(&amp;H)…</translation>
    </message>
    <message>
        <source>For&amp;mat:</source>
        <translation>格式(&amp;M)：</translation>
    </message>
    <message>
        <source>Looking for brackets…</source>
        <translation>正在查找包围曝光组…</translation>
    </message>
    <message>
        <source>%1 brackets to merge</source>
        <translation>待合成的包围曝光组：%1</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>已暂停</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>%1 merged, %2 done already, %3 failed, %4 stopped</source>
        <translation>已合成 %1，先前已完成 %2，失败 %3，已停止 %4</translation>
    </message>
    <message>
        <source>Fi&amp;nd Again</source>
        <translation>重新查找(&amp;N)</translation>
    </message>
    <message>
        <source>Finds the brackets of the folder anew, without your changes</source>
        <translation>放弃您的更改，重新查找文件夹中的包围曝光组</translation>
    </message>
    <message>
        <source>%1 of %2, about %3 left</source>
        <translation>%1 / %2，约剩 %3</translation>
    </message>
    <message>
        <source>Show Resu&amp;lts</source>
        <translation>显示结果(&amp;L)</translation>
    </message>
    <message>
        <source>Go O&amp;n</source>
        <translation>继续(&amp;N)</translation>
    </message>
    <message>
        <source>Pau&amp;se</source>
        <translation>暂停(&amp;S)</translation>
    </message>
</context>
<context>
    <name>BracketBatch</name>
    <message>
        <source>another file of this name is there</source>
        <translation>已存在同名的其他文件</translation>
    </message>
    <message>
        <source>another bracket gets the same name</source>
        <translation>另一组会得到相同的名称</translation>
    </message>
</context>
<context>
    <name>BracketTable</name>
    <message>
        <source>waiting</source>
        <translation>等待中</translation>
    </message>
    <message>
        <source>Merging…</source>
        <translation>正在合成…</translation>
    </message>
    <message>
        <source>merged</source>
        <translation>合成</translation>
    </message>
    <message>
        <source>done already</source>
        <translation>已完成</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 至 %2</translation>
    </message>
    <message>
        <source>Bracket</source>
        <translation>包围曝光</translation>
    </message>
    <message>
        <source>Shots</source>
        <translation>照片</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Brackets</source>
        <translation>包围曝光组</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>&amp;Join</source>
        <translation>合并(&amp;J)</translation>
    </message>
    <message>
        <source>Sp&amp;lit Here</source>
        <translation>在此拆分(&amp;L)</translation>
    </message>
    <message>
        <source>Take Out or Put &amp;Back</source>
        <translation>移出或放回(&amp;B)</translation>
    </message>
    <message>
        <source>Makes one bracket of the selected brackets and shots</source>
        <translation>将所选的组和照片合并为一组包围曝光</translation>
    </message>
    <message>
        <source>Begins another bracket with the selected shot</source>
        <translation>从所选照片开始另一组包围曝光</translation>
    </message>
    <message>
        <source>In no bracket</source>
        <translation>不属于任何一组</translation>
    </message>
</context>
<context>
    <name>BrushBar</name>
    <message>
        <source>Brush</source>
        <translation>画笔</translation>
    </message>
    <message>
        <source>Paint over the preview which shot a part comes from (P)</source>
        <translation>在预览上涂抹，指定该部分取自哪张照片 (P)</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>橡皮擦</translation>
    </message>
    <message>
        <source>Erase what was painted (E, Alt, right button)</source>
        <translation>擦除涂抹的部分 (E、Alt、右键)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Take the last stroke back (Ctrl+Z)</source>
        <translation>撤销上一笔 (Ctrl+Z)</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Take all strokes away</source>
        <translation>清除所有笔画</translation>
    </message>
    <message>
        <source>Shot to paint with</source>
        <translation>用于涂抹的照片</translation>
    </message>
    <message>
        <source>What is painted comes from this shot. Shift and a click take what moved there, whole; Ctrl moves the picture.</source>
        <translation>涂抹的部分取自这张照片。按住 Shift 单击会整体取用那里移动的物体；按住 Ctrl 可移动图片。</translation>
    </message>
    <message>
        <source>Size of the brush</source>
        <translation>画笔大小</translation>
    </message>
    <message>
        <source>Size of the brush ([ and ])</source>
        <translation>画笔大小 ([ 和 ])</translation>
    </message>
</context>
<context>
    <name>CropTool</name>
    <message>
        <source>Crop</source>
        <translation>裁剪</translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation>比例</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>自由</translation>
    </message>
    <message>
        <source>As it is</source>
        <translation>原始比例</translation>
    </message>
    <message>
        <source>What all shots cover</source>
        <translation>所有照片共有的区域</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>Document</name>
    <message>
        <source>Background</source>
        <translation>背景</translation>
    </message>
    <message>
        <source>Show Layer</source>
        <translation>显示图层</translation>
    </message>
    <message>
        <source>Hide Layer</source>
        <translation>隐藏图层</translation>
    </message>
</context>
<context>
    <name>DocumentSaver</name>
    <message>
        <source>Unsaved Changes</source>
        <translation>未保存的更改</translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <translation>是否保存对“%1”的更改？</translation>
    </message>
    <message>
        <source>If you do not save them, they will be lost.</source>
        <translation>如果不保存，更改将会丢失。</translation>
    </message>
    <message>
        <source>no layer is visible</source>
        <translation>没有可见的图层</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>未能保存</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2.</source>
        <translation>无法保存“%1”：%2。</translation>
    </message>
    <message>
        <source>The picture is still open, with all its changes. You can save it elsewhere.</source>
        <translation>图像仍处于打开状态，所有更改都在。您可以将其保存到其他位置。</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>另存为(&amp;A)…</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>内存不足</translation>
    </message>
    <message>
        <source>Show a layer in the list of layers, then save again.</source>
        <translation>请在图层列表中显示一个图层，然后重新保存。</translation>
    </message>
    <message>
        <source>%1 documents have unsaved changes.</source>
        <translation>有 %1 个文档尚未保存更改。</translation>
    </message>
    <message>
        <source>&amp;Save All</source>
        <translation>全部保存(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Discard All</source>
        <translation>全部放弃(&amp;D)</translation>
    </message>
    <message>
        <source>“%1” has been changed by another program.</source>
        <translation>“%1”已被其他程序更改。</translation>
    </message>
    <message>
        <source>If you replace it, what was changed there is lost.</source>
        <translation>如果替换，那些更改将会丢失。</translation>
    </message>
    <message>
        <source>“%1” holds a gain map: bright screens show it brighter.</source>
        <translation>“%1”包含增益图：高亮屏幕会将其显示得更亮。</translation>
    </message>
    <message>
        <source>Vesk cannot keep that. The file would look the same on all screens from now on.</source>
        <translation>Vesk 无法保留它。此后该文件在所有屏幕上显示相同。</translation>
    </message>
    <message>
        <source>Replace the File?</source>
        <translation>替换文件？</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>替换(&amp;R)</translation>
    </message>
</context>
<context>
    <name>DocumentTabBar</name>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Close &amp;Others</source>
        <translation>关闭其他(&amp;O)</translation>
    </message>
</context>
<context>
    <name>DocumentTabs</name>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>%1 •</source>
        <extracomment>A document with unsaved changes; %1 is its name.</extracomment>
        <translation>%1 •</translation>
    </message>
    <message>
        <source>All open documents</source>
        <translation>所有打开的文档</translation>
    </message>
    <message>
        <source>From the Other Side</source>
        <translation>来自另一侧</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <extracomment>%1 is what the user did last, such as &quot;Crop&quot;.</extracomment>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste as Document</source>
        <translation>粘贴为文档(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Straighten…</source>
        <translation>拉直(&amp;S)…</translation>
    </message>
    <message>
        <source>Rotate &amp;Left</source>
        <translation>向左旋转(&amp;L)</translation>
    </message>
    <message>
        <source>Rotate Ri&amp;ght</source>
        <translation>向右旋转(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>撤销：%1(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>重做：%1(&amp;R)</translation>
    </message>
    <message>
        <source>Pasted Picture</source>
        <extracomment>The name of a document from the clipboard.</extracomment>
        <translation>粘贴的图片</translation>
    </message>
    <message>
        <source>Cr&amp;op…</source>
        <translation>裁剪(&amp;T)…</translation>
    </message>
</context>
<context>
    <name>EditorActions</name>
    <message>
        <source>&amp;Open…</source>
        <translation>打开(&amp;O)…</translation>
    </message>
    <message>
        <source>Open &amp;Folder…</source>
        <translation>打开文件夹(&amp;F)…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>放大(&amp;I)</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>缩小(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Fit to Window</source>
        <translation>适合窗口(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Actual Size (100 %)</source>
        <translation>实际大小 (100%)(&amp;A)</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>适合</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100%</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>全屏(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Next Document</source>
        <translation>下一个文档(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Previous Document</source>
        <translation>上一个文档(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Merge to HDR…</source>
        <translation>合并到 HDR(&amp;M)…</translation>
    </message>
    <message>
        <source>&amp;About Vesk</source>
        <translation>关于 Vesk(&amp;A)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <extracomment>The tip of a button: the command, and the keys that do the same.</extracomment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Merge &amp;Exposures…</source>
        <translation>合成曝光(&amp;E)…</translation>
    </message>
    <message>
        <source>Align the selected shots and fuse them: preview, options, a new document</source>
        <translation>对齐并融合所选照片：可预览、可调选项，生成新文档</translation>
    </message>
    <message>
        <source>Merge up to five shots by their weighted mean, in place of the document</source>
        <translation>用加权平均合并最多五张照片，并替换当前文档</translation>
    </message>
    <message>
        <source>Merge &amp;Brackets…</source>
        <translation>合成包围曝光(&amp;B)…</translation>
    </message>
    <message>
        <source>Find the brackets of a folder and merge them all, as Merge Exposures does</source>
        <translation>查找文件夹中的包围曝光组，并像“合成曝光”一样全部合成</translation>
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
        <translation>%1%</translation>
    </message>
    <message>
        <source>%1, %2   R %3 G %4 B %5</source>
        <extracomment>Position in pixels, and the levels of red, green and blue.</extracomment>
        <translation>%1, %2   R %3 G %4 B %5</translation>
    </message>
    <message>
        <source>Opening %1…</source>
        <translation>正在打开 %1…</translation>
    </message>
    <message>
        <source>Opening %1 (%2 of %3)…</source>
        <translation>正在打开 %1 (%2/%3)…</translation>
    </message>
</context>
<context>
    <name>Edits</name>
    <message>
        <source>Crop</source>
        <translation>裁剪</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>旋转</translation>
    </message>
    <message>
        <source>Straighten</source>
        <translation>拉直</translation>
    </message>
    <message>
        <source>Adjust</source>
        <translation>调整</translation>
    </message>
</context>
<context>
    <name>ExposureMergeCommand</name>
    <message>
        <source>%1 merged</source>
        <extracomment>The name of a merged picture; %1 is that of the shot it was made from.</extracomment>
        <translation>%1 合成</translation>
    </message>
</context>
<context>
    <name>ExposureTexts</name>
    <message>
        <source>1/%1 s</source>
        <extracomment>An exposure time in seconds.</extracomment>
        <translation>1/%1 秒</translation>
    </message>
    <message>
        <source>%1 s</source>
        <extracomment>An exposure time in seconds.</extracomment>
        <translation>%1 秒</translation>
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
        <translation>此文件夹中没有图像</translation>
    </message>
    <message>
        <source>Film Strip</source>
        <translation>胶片条</translation>
    </message>
</context>
<context>
    <name>FilmStripActions</name>
    <message>
        <source>&amp;Next Bracket</source>
        <translation>下一组包围曝光(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Previous Bracket</source>
        <translation>上一组包围曝光(&amp;P)</translation>
    </message>
    <message>
        <source>Select &amp;All Pictures</source>
        <translation>选择所有图像(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Hide Merged Results</source>
        <translation>隐藏合成结果(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Rating</source>
        <translation>评级(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Sort By</source>
        <translation>排序方式(&amp;S)</translation>
    </message>
    <message>
        <source>The rating of “%1” could not be saved: %2.</source>
        <extracomment>%1 is the name of a picture, %2 the reason.</extracomment>
        <translation>无法保存“%1”的评级：%2。</translation>
    </message>
    <message>
        <source>No Stars</source>
        <translation>无星级</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>名称(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Time Taken</source>
        <translation>拍摄时间(&amp;T)</translation>
    </message>
    <message>
        <source>There is no further bracket in this folder.</source>
        <translation>此文件夹中没有更多的包围曝光组。</translation>
    </message>
    <message>
        <source>Bracket %1 of %2</source>
        <translation>包围曝光 %1 / %2</translation>
    </message>
</context>
<context>
    <name>FilmStripModel</name>
    <message>
        <source>merged</source>
        <translation>合成</translation>
    </message>
    <message>
        <source>Bracket of %1, %2</source>
        <translation>%1 张包围曝光，%2</translation>
    </message>
    <message>
        <source>A merged picture</source>
        <translation>合成的图像</translation>
    </message>
    <message>
        <source>bracket %1 of %2</source>
        <translation>包围曝光 %1 / %2</translation>
    </message>
    <message>
        <source>rated %1 of %2</source>
        <translation>评级 %1 / %2</translation>
    </message>
</context>
<context>
    <name>HdrCommand</name>
    <message>
        <source>Merge to HDR</source>
        <translation>合并到 HDR</translation>
    </message>
    <message>
        <source>%1 pictures are selected, but at most %2 can be merged.</source>
        <translation>已选择 %1 张图片，但最多只能合并 %2 张。</translation>
    </message>
    <message>
        <source>Only these will be taken: %1</source>
        <translation>只会采用这些图片：%1</translation>
    </message>
</context>
<context>
    <name>HistogramDock</name>
    <message>
        <source>Histogram</source>
        <translation>直方图</translation>
    </message>
    <message>
        <source>All channels</source>
        <translation>全部通道</translation>
    </message>
    <message>
        <source>Luminosity</source>
        <translation>亮度</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>红</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>绿</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>蓝</translation>
    </message>
    <message>
        <source>Logarithmic</source>
        <translation>对数</translation>
    </message>
</context>
<context>
    <name>JpegQualityDialog</name>
    <message>
        <source>JPEG Quality</source>
        <translation>JPEG 质量</translation>
    </message>
    <message>
        <source>&amp;Quality:</source>
        <translation>质量(&amp;Q)：</translation>
    </message>
    <message>
        <source>Low values give small files, high ones keep more detail. From about 95 on, losses are hard to see.</source>
        <translation>数值越低，文件越小；数值越高，保留的细节越多。大约从 95 起，损失很难看出。</translation>
    </message>
    <message>
        <source>JPEG files cannot hold transparency: what is transparent becomes white.</source>
        <translation>JPEG 文件不支持透明：透明部分将变为白色。</translation>
    </message>
</context>
<context>
    <name>LanguageMenu</name>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
</context>
<context>
    <name>LayerDock</name>
    <message>
        <source>%1 %</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>%1 — %2</source>
        <extracomment>A layer and its opacity in percent.</extracomment>
        <translation>%1 — %2</translation>
    </message>
    <message>
        <source>Tick to show the layer</source>
        <translation>勾选以显示图层</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>图层</translation>
    </message>
</context>
<context>
    <name>LightCommand</name>
    <message>
        <source>%1 developed</source>
        <translation>%1 已显影</translation>
    </message>
</context>
<context>
    <name>LightSaving</name>
    <message>
        <source>Radiance picture</source>
        <translation>Radiance 图片</translation>
    </message>
    <message>
        <source>TIFF picture, floating point</source>
        <translation>TIFF 图片，浮点</translation>
    </message>
    <message>
        <source>OpenEXR picture</source>
        <translation>OpenEXR 图片</translation>
    </message>
    <message>
        <source>Save Light</source>
        <translation>保存光照</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>未能保存</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2.</source>
        <translation>无法保存“%1”：%2。</translation>
    </message>
    <message>
        <source>files of this kind hold no light; choose .exr, .hdr or .tif</source>
        <translation>此类文件不保存光照；请选择 .exr、.hdr 或 .tif</translation>
    </message>
    <message>
        <source>JPEG picture that bright screens show brighter</source>
        <translation>JPEG 图片，在高亮屏幕上显示得更亮</translation>
    </message>
    <message>
        <source>AVIF picture for bright screens</source>
        <translation>用于高亮屏幕的 AVIF 图片</translation>
    </message>
    <message>
        <source>JPEG XL picture for bright screens</source>
        <translation>用于高亮屏幕的 JPEG XL 图片</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>内存不足</translation>
    </message>
</context>
<context>
    <name>LightWindow</name>
    <message>
        <source>Exposure</source>
        <translation>曝光</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>&amp;Method:</source>
        <translation>方法(&amp;M)：</translation>
    </message>
    <message>
        <source>&amp;Exposure:</source>
        <translation>曝光(&amp;E)：</translation>
    </message>
    <message>
        <source>%1 — Light</source>
        <translation>%1 — 光照</translation>
    </message>
    <message>
        <source>Mar&amp;k what is brighter than white</source>
        <translation>标出比白色更亮的部分(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Save Light…</source>
        <translation>保存光照(&amp;S)…</translation>
    </message>
    <message>
        <source>&amp;Develop</source>
        <translation>显影(&amp;D)</translation>
    </message>
    <message>
        <source>As one shot shows it</source>
        <translation>如单张照片所示</translation>
    </message>
    <message>
        <source>One curve for all of it</source>
        <translation>全图用一条曲线</translation>
    </message>
    <message>
        <source>Each place at its best</source>
        <translation>各处取最佳</translation>
    </message>
    <message>
        <source>There is not enough memory to show this.</source>
        <translation>内存不足，无法显示。</translation>
    </message>
    <message>
        <source>Not Developed</source>
        <translation>未能显影</translation>
    </message>
    <message>
        <source>There is not enough memory for a picture of this size.</source>
        <translation>内存不足，无法生成此尺寸的图片。</translation>
    </message>
    <message>
        <source>Developing…</source>
        <translation>正在显影…</translation>
    </message>
    <message>
        <source>Light Not Saved</source>
        <translation>光照未保存</translation>
    </message>
    <message>
        <source>The light is in no file yet. Close it without saving?</source>
        <translation>光照尚未存入文件。不保存就关闭吗？</translation>
    </message>
</context>
<context>
    <name>LookBox</name>
    <message>
        <source>Look</source>
        <translation>外观</translation>
    </message>
    <message>
        <source>Aut&amp;o</source>
        <translation>自动(&amp;O)</translation>
    </message>
    <message>
        <source>A look that suits the picture, to begin with</source>
        <translation>先套用适合该图像的外观</translation>
    </message>
    <message>
        <source>Rese&amp;t</source>
        <translation>重置(&amp;T)</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>曝光：</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>高光：</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>阴影：</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>对比度：</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>黑场：</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>白场：</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>饱和度：</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Film Strip</source>
        <translation>胶片条</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>工具(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>设置(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Vesk will speak this language when it is started again: %1</source>
        <translation>下次启动后将使用此语言：%1</translation>
    </message>
    <message>
        <source>Tool Bar</source>
        <translation>工具栏</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>已保存 %1</translation>
    </message>
    <message>
        <source>Film Strip — %1</source>
        <translation>胶片条 — %1</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>图像</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>所有文件</translation>
    </message>
    <message>
        <source>Open Pictures</source>
        <translation>打开图像</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>%1[*] — Vesk</source>
        <translation>%1[*] — Vesk</translation>
    </message>
    <message>
        <source>Fusion with preview</source>
        <translation>带预览的融合</translation>
    </message>
    <message>
        <source>Weighted mean of up to five</source>
        <translation>最多五张的加权平均</translation>
    </message>
    <message>
        <source>&amp;Pictures</source>
        <translation>图像(&amp;P)</translation>
    </message>
</context>
<context>
    <name>MergeOptionsPanel</name>
    <message>
        <source>C&amp;rop to what all shots cover</source>
        <translation>裁剪到共同区域(&amp;R)</translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>合成</translation>
    </message>
    <message>
        <source>Exposure fusion</source>
        <translation>曝光融合</translation>
    </message>
    <message>
        <source>Mean (as Merge to HDR)</source>
        <translation>平均（同“合并到 HDR”）</translation>
    </message>
    <message>
        <source>&amp;Alignment:</source>
        <translation>对齐(&amp;A)：</translation>
    </message>
    <message>
        <source>&amp;Ghosts:</source>
        <extracomment>What moved between the shots.</extracomment>
        <translation>重影(&amp;G)：</translation>
    </message>
    <message>
        <source>Remove, automatically</source>
        <translation>自动去除</translation>
    </message>
    <message>
        <source>Leave them in</source>
        <translation>保留</translation>
    </message>
    <message>
        <source>From %1</source>
        <extracomment>%1 is the name of a shot.</extracomment>
        <translation>取自 %1</translation>
    </message>
    <message>
        <source>Perspective</source>
        <translation>透视</translation>
    </message>
    <message>
        <source>Whole pixels</source>
        <translation>整像素</translation>
    </message>
    <message>
        <source>None (tripod)</source>
        <translation>无（三脚架）</translation>
    </message>
    <message>
        <source>Light of the scene</source>
        <translation>场景的光照</translation>
    </message>
    <message>
        <source>M&amp;ethod:</source>
        <translation>方法(&amp;E)：</translation>
    </message>
</context>
<context>
    <name>MergePreview</name>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>合成前</translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>请稍候…</translation>
    </message>
</context>
<context>
    <name>MergeTexts</name>
    <message>
        <source>it is too small</source>
        <translation>尺寸太小</translation>
    </message>
    <message>
        <source>it shows too little detail</source>
        <translation>细节太少</translation>
    </message>
    <message>
        <source>it does not match the others</source>
        <translation>与其他照片不匹配</translation>
    </message>
    <message>
        <source>Reading the pictures…</source>
        <translation>正在读取图片…</translation>
    </message>
    <message>
        <source>Aligning…</source>
        <translation>正在对齐…</translation>
    </message>
    <message>
        <source>Looking for what moved…</source>
        <translation>正在查找移动的部分…</translation>
    </message>
    <message>
        <source>Merging…</source>
        <translation>正在合成…</translation>
    </message>
    <message>
        <source>At most %1 pictures can be merged.</source>
        <translation>最多可合成 %1 张图片。</translation>
    </message>
    <message>
        <source>The pictures have different sizes.</source>
        <translation>图片尺寸不同。</translation>
    </message>
    <message>
        <source>Nothing is left to crop to: the pictures do not overlap.</source>
        <translation>图片互不重叠，没有可裁剪的区域。</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>内存不足。</translation>
    </message>
    <message>
        <source>“%1” could not be read: %2.</source>
        <extracomment>A file, and why it could not be read.</extracomment>
        <translation>无法读取“%1”：%2。</translation>
    </message>
    <message>
        <source>“%1” (%2 pixels) has not the size of “%3” (%4 pixels).</source>
        <translation>“%1”（%2 像素）与“%3”（%4 像素）尺寸不同。</translation>
    </message>
    <message>
        <source>left unaligned: %1</source>
        <translation>未对齐：%1</translation>
    </message>
    <message>
        <source>lies as it is</source>
        <translation>位置已吻合</translation>
    </message>
    <message>
        <source>aligned, %1 % sure</source>
        <extracomment>How far an alignment can be trusted, in percent.</extracomment>
        <translation>已对齐，可信度 %1 %</translation>
    </message>
    <message>
        <source>%1 was left unaligned: %2.</source>
        <translation>%1 未对齐：%2。</translation>
    </message>
    <message>
        <source>A painted part does not belong to these pictures.</source>
        <translation>涂抹的部分不属于这些图片。</translation>
    </message>
</context>
<context>
    <name>MergeWorkspace</name>
    <message>
        <source>A&amp;dd Shots…</source>
        <translation>添加照片(&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;Use as Reference</source>
        <translation>用作基准(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Merge</source>
        <translation>合成(&amp;M)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Merge Exposures</source>
        <translation>合成曝光</translation>
    </message>
    <message>
        <source>S&amp;hots:</source>
        <translation>照片(&amp;H)：</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>图像</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>所有文件</translation>
    </message>
    <message>
        <source>Add Shots</source>
        <translation>添加照片</translation>
    </message>
    <message>
        <source>Add two or more shots of one scene, or drop them here.</source>
        <translation>请添加同一场景的两张或更多照片，或将其拖放到此处。</translation>
    </message>
    <message>
        <source>Aligned: %1 of %2</source>
        <translation>已对齐：%2 张中的 %1 张</translation>
    </message>
    <message>
        <source>Choose Reference A&amp;utomatically</source>
        <translation>自动选择基准(&amp;U)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Not Merged</source>
        <translation>未合成</translation>
    </message>
    <message>
        <source>&amp;Next Bracket</source>
        <translation>下一组包围曝光(&amp;N)</translation>
    </message>
    <message>
        <source>Merge Exposures — bracket %1 of %2</source>
        <translation>合成曝光 — 第 %1 组，共 %2 组</translation>
    </message>
    <message>
        <source>Sharpening…</source>
        <translation>正在细化…</translation>
    </message>
</context>
<context>
    <name>OpenFailureBox</name>
    <message>
        <source>“%1”: %2</source>
        <extracomment>A file, and why it could not be opened.</extracomment>
        <translation>“%1”：%2</translation>
    </message>
    <message>
        <source>This file could not be opened:</source>
        <translation>无法打开此文件：</translation>
    </message>
    <message numerus="yes">
        <source>%n files could not be opened:</source>
        <translation>
            <numerusform>无法打开 %n 个文件：</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Opened</source>
        <translation>未能打开</translation>
    </message>
</context>
<context>
    <name>OutputFile</name>
    <message>
        <source>Permission denied</source>
        <translation>没有权限</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>超出磁盘配额</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>设备上没有剩余空间</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>文件系统为只读</translation>
    </message>
    <message>
        <source>there is no such folder</source>
        <translation>文件夹不存在</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>是文件夹</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>不是普通文件</translation>
    </message>
    <message>
        <source>the file exists already</source>
        <translation>文件已存在</translation>
    </message>
</context>
<context>
    <name>PhotoDock</name>
    <message>
        <source>%1 s</source>
        <extracomment>A time in seconds.</extracomment>
        <translation>%1 秒</translation>
    </message>
    <message>
        <source>Photograph</source>
        <translation>拍摄信息</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>相机</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>镜头</translation>
    </message>
    <message>
        <source>Taken</source>
        <translation>拍摄时间</translation>
    </message>
    <message>
        <source>Aperture</source>
        <translation>光圈</translation>
    </message>
    <message>
        <source>Sensitivity</source>
        <translation>感光度</translation>
    </message>
    <message>
        <source>Focal length</source>
        <extracomment>A length in millimetres.</extracomment>
        <translation>焦距</translation>
    </message>
    <message>
        <source>%1 mm</source>
        <translation>%1 毫米</translation>
    </message>
    <message>
        <source>Correction</source>
        <extracomment>An exposure in stops, with its sign.</extracomment>
        <translation>曝光补偿</translation>
    </message>
    <message>
        <source>%1 EV</source>
        <translation>%1 EV</translation>
    </message>
    <message>
        <source>Exposure time</source>
        <translation>曝光时间</translation>
    </message>
</context>
<context>
    <name>PictureDecoder</name>
    <message>
        <source>no such file</source>
        <translation>文件不存在</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>是文件夹</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>不是普通文件</translation>
    </message>
    <message>
        <source>no permission to read it</source>
        <translation>没有读取权限</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>无法读取</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>文件为空</translation>
    </message>
    <message>
        <source>not a picture</source>
        <translation>不是图像</translation>
    </message>
    <message>
        <source>the picture is truncated or damaged</source>
        <translation>图像不完整或已损坏</translation>
    </message>
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
    <message>
        <source>cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>%1, a kind of picture that this build does not read</source>
        <extracomment>%1 is the name of a file format, such as HEIC</extracomment>
        <translation>%1：此版本无法读取的图片类型</translation>
    </message>
    <message>
        <source>the camera raw file cannot be converted: %1</source>
        <translation>无法转换相机 RAW 文件：%1</translation>
    </message>
</context>
<context>
    <name>PictureEncoder</name>
    <message>
        <source>JPEG files hold at most %1 pixels in a row or column</source>
        <translation>JPEG 文件的每行或每列最多 %1 像素</translation>
    </message>
    <message>
        <source>the JPEG file could not be written</source>
        <translation>无法写入 JPEG 文件</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>内存不足</translation>
    </message>
    <message>
        <source>the PNG file could not be written</source>
        <translation>无法写入 PNG 文件</translation>
    </message>
    <message>
        <source>the OpenEXR file could not be written</source>
        <translation>无法写入 OpenEXR 文件</translation>
    </message>
    <message>
        <source>the Radiance file could not be written</source>
        <translation>无法写入 Radiance 文件</translation>
    </message>
    <message>
        <source>the TIFF file could not be written</source>
        <translation>无法写入 TIFF 文件</translation>
    </message>
    <message>
        <source>this program was built without OpenEXR</source>
        <translation>此程序在构建时未包含 OpenEXR</translation>
    </message>
    <message>
        <source>the AVIF file could not be written</source>
        <translation>无法写入 AVIF 文件</translation>
    </message>
    <message>
        <source>the JPEG XL file could not be written</source>
        <translation>无法写入 JPEG XL 文件</translation>
    </message>
    <message>
        <source>this program was built without AVIF</source>
        <translation>此程序在构建时未包含 AVIF</translation>
    </message>
    <message>
        <source>this program was built without JPEG XL</source>
        <translation>此程序在构建时未包含 JPEG XL</translation>
    </message>
</context>
<context>
    <name>PictureRating</name>
    <message>
        <source>its XMP file cannot be read</source>
        <translation>无法读取其 XMP 文件</translation>
    </message>
</context>
<context>
    <name>PreviewBar</name>
    <message>
        <source>Before</source>
        <translation>合成前</translation>
    </message>
    <message>
        <source>The reference as it was taken, while B or this is held</source>
        <translation>按住 B 或此按钮时显示原始基准照片</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>分屏</translation>
    </message>
    <message>
        <source>Before and after side by side; drag the line (S)</source>
        <translation>前后并排对比；可拖动分界线 (S)</translation>
    </message>
    <message>
        <source>Blink</source>
        <translation>闪切</translation>
    </message>
    <message>
        <source>The aligned shots, one after the other (K)</source>
        <translation>依次显示对齐后的照片 (K)</translation>
    </message>
    <message>
        <source>Clipping</source>
        <translation>裁切警告</translation>
    </message>
    <message>
        <source>Red where it is too bright, blue where it is too dark (C)</source>
        <translation>过亮处显示红色，过暗处显示蓝色 (C)</translation>
    </message>
    <message>
        <source>Loupe</source>
        <translation>放大镜</translation>
    </message>
    <message>
        <source>100 % around the pointer (L)</source>
        <translation>以 100% 显示指针周围 (L)</translation>
    </message>
    <message>
        <source>Fit</source>
        <extracomment>On a button: the picture as large as it fits.</extracomment>
        <translation>适合</translation>
    </message>
    <message>
        <source>As large as it fits (Ctrl+0)</source>
        <translation>适合窗口 (Ctrl+0)</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100%</translation>
    </message>
    <message>
        <source>Pixel for pixel (Ctrl+1)</source>
        <translation>逐像素显示 (Ctrl+1)</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1%</translation>
    </message>
</context>
<context>
    <name>RecentFilesMenu</name>
    <message>
        <source>Open &amp;Recent</source>
        <translation>最近打开的文件(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>清除列表(&amp;C)</translation>
    </message>
</context>
<context>
    <name>Recovery</name>
    <message>
        <source>the folder “%1” cannot be written</source>
        <translation>无法写入文件夹“%1”</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>JPEG picture</source>
        <translation>JPEG 图像</translation>
    </message>
    <message>
        <source>PNG picture</source>
        <translation>PNG 图像</translation>
    </message>
    <message>
        <source>TIFF picture</source>
        <translation>TIFF 图像</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>PNG picture, 16 bits per channel</source>
        <translation>PNG 图片，每通道 16 位</translation>
    </message>
    <message>
        <source>PNG picture, 8 bits per channel</source>
        <translation>PNG 图片，每通道 8 位</translation>
    </message>
    <message>
        <source>TIFF picture, 16 bits per channel</source>
        <translation>TIFF 图片，每通道 16 位</translation>
    </message>
    <message>
        <source>TIFF picture, 8 bits per channel</source>
        <translation>TIFF 图片，每通道 8 位</translation>
    </message>
</context>
<context>
    <name>ScreenColoursMenu</name>
    <message>
        <source>&amp;Screen Colours</source>
        <translation>屏幕颜色(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;sRGB (Most Screens)</source>
        <translation>sRGB（大多数屏幕）(&amp;S)</translation>
    </message>
    <message>
        <source>Colour profiles</source>
        <translation>颜色配置文件</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>所有文件</translation>
    </message>
    <message>
        <source>Profile of the Screen</source>
        <translation>屏幕配置文件</translation>
    </message>
    <message>
        <source>Screen Colours</source>
        <translation>屏幕颜色</translation>
    </message>
    <message>
        <source>“%1” is not a colour profile for a screen.</source>
        <translation>“%1”不是屏幕的颜色配置文件。</translation>
    </message>
    <message>
        <source>&amp;Profile File…</source>
        <translation>配置文件(&amp;P)…</translation>
    </message>
    <message>
        <source>&amp;Profile File: %1…</source>
        <translation>配置文件(&amp;P)：%1…</translation>
    </message>
</context>
<context>
    <name>SessionKeeper</name>
    <message>
        <source>Recovery</source>
        <translation>恢复</translation>
    </message>
    <message>
        <source>Vesk did not end as it should. Unsaved changes were kept of:</source>
        <translation>Vesk 上次未正常退出。以下文档的未保存更改已保留：</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>恢复(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>以后(&amp;L)</translation>
    </message>
    <message>
        <source>Could not be recovered: %1</source>
        <translation>无法恢复：%1</translation>
    </message>
    <message>
        <source>Unsaved changes cannot be kept for recovery: %1</source>
        <translation>无法保留未保存的更改以供恢复：%1</translation>
    </message>
</context>
<context>
    <name>ShotList</name>
    <message>
        <source>Shots</source>
        <translation>照片</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>正在读取…</translation>
    </message>
    <message>
        <source>★ reference</source>
        <extracomment>The shot that the others are aligned to.</extracomment>
        <translation>★ 基准</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Drop photographs or a folder here</source>
        <translation>将照片或文件夹拖放到此处</translation>
    </message>
</context>
<context>
    <name>StraightenTool</name>
    <message>
        <source>Straighten</source>
        <translation>拉直</translation>
    </message>
    <message>
        <source>Draw a line along the horizon, or along something upright</source>
        <translation>沿地平线或垂直物体画一条线</translation>
    </message>
</context>
<context>
    <name>ThemeMenu</name>
    <message>
        <source>&amp;Theme</source>
        <translation>主题(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;As the Desktop</source>
        <translation>跟随桌面(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>深色(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>浅色(&amp;L)</translation>
    </message>
</context>
<context>
    <name>VeskActionManager</name>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>另存为(&amp;A)…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
</context>
<context>
    <name>VeskProgressIndicator</name>
    <message>
        <source>Please wait</source>
        <translation>请稍候</translation>
    </message>
</context>
<context>
    <name>VeskRaw</name>
    <message>
        <source>Unspecified error</source>
        <translation>未指明的错误</translation>
    </message>
    <message>
        <source>Unsupported file format or not RAW file</source>
        <translation>格式不受支持，或不是 RAW 文件</translation>
    </message>
    <message>
        <source>Unsufficient memory</source>
        <translation>内存不足</translation>
    </message>
    <message>
        <source>Corrupted data or unexpected EOF</source>
        <translation>数据已损坏或文件意外结束</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>输入/输出错误</translation>
    </message>
    <message>
        <source>Cancelled by user callback</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>Image too big for processing</source>
        <translation>图像太大</translation>
    </message>
    <message>
        <source>The picture has more pixels than allowed</source>
        <translation>图像的像素数超过上限</translation>
    </message>
    <message>
        <source>The file is damaged</source>
        <translation>文件已损坏</translation>
    </message>
    <message>
        <source>Not enough memory</source>
        <translation>内存不足</translation>
    </message>
    <message>
        <source>The raw library failed</source>
        <translation>RAW 库出错</translation>
    </message>
    <message>
        <source>The raw converter cannot be started</source>
        <translation>无法启动 RAW 转换器</translation>
    </message>
    <message>
        <source>The raw converter ended before it was done</source>
        <translation>RAW 转换器在完成之前已终止</translation>
    </message>
    <message>
        <source>The conversion took too long</source>
        <translation>转换耗时过长</translation>
    </message>
</context>
<context>
    <name>VeskTitleWidget</name>
    <message>
        <source>Minimize</source>
        <translation>最小化</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>最大化</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Clipping Warning</source>
        <translation>溢出警告(&amp;C)</translation>
    </message>
    <message>
        <source>Side by &amp;Side</source>
        <translation>并排显示(&amp;S)</translation>
    </message>
    <message>
        <source>Show another document beside this one</source>
        <translation>在此文档旁显示另一个文档</translation>
    </message>
    <message>
        <source>&amp;Lock Views</source>
        <translation>锁定视图(&amp;L)</translation>
    </message>
    <message>
        <source>Zoom and place of both documents move together</source>
        <translation>两个文档的缩放和位置同步变化</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>一款小巧的照片编辑器，可合并包围曝光的照片。</translation>
    </message>
    <message>
        <source>Merge these pictures.</source>
        <translation>合成这些图片。</translation>
    </message>
    <message>
        <source>Pictures to open, or a folder to show.</source>
        <translation>要打开的图像或要显示的文件夹。</translation>
    </message>
</context>
</TS>
