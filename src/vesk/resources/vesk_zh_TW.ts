<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Vesk</source>
        <translation>關於 Vesk</translation>
    </message>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>一款小巧的相片編輯器，可合併包圍曝光的相片。</translation>
    </message>
    <message>
        <source>Free software under the MIT licence. Built on Qt %1, LibRaw, libexif and OpenCL.</source>
        <translation>採用 MIT 授權的自由軟體。使用 Qt %1、LibRaw、libexif 和 OpenCL。</translation>
    </message>
</context>
<context>
    <name>AdjustDock</name>
    <message>
        <source>Adjust</source>
        <translation>調整</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>曝光：</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>對比：</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>亮部：</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>暗部：</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>黑點：</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>白點：</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>飽和度：</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>Propose a look from how light and dark the picture is</source>
        <translation>依圖片的明暗提出調整建議</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>重設</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>比較</translation>
    </message>
    <message>
        <source>Hold to see the picture without these changes</source>
        <translation>按住可檢視沒有這些變更的圖片</translation>
    </message>
</context>
<context>
    <name>BatchWindow</name>
    <message>
        <source>&amp;Start</source>
        <translation>開始(&amp;S)</translation>
    </message>
    <message>
        <source>Sto&amp;p</source>
        <translation>停止(&amp;P)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>關閉</translation>
    </message>
    <message>
        <source>Merge Brackets</source>
        <translation>合成包圍曝光</translation>
    </message>
    <message>
        <source>&amp;Folder with shots:</source>
        <translation>照片資料夾(&amp;F)：</translation>
    </message>
    <message>
        <source>Cho&amp;ose…</source>
        <translation>選擇(&amp;O)…</translation>
    </message>
    <message>
        <source>Folder for res&amp;ults:</source>
        <translation>結果資料夾(&amp;U)：</translation>
    </message>
    <message>
        <source>C&amp;hoose…</source>
        <translation>選擇(&amp;H)…</translation>
    </message>
    <message>
        <source>For&amp;mat:</source>
        <translation>格式(&amp;M)：</translation>
    </message>
    <message>
        <source>Looking for brackets…</source>
        <translation>正在尋找包圍曝光組…</translation>
    </message>
    <message>
        <source>%1 brackets to merge</source>
        <translation>待合成的包圍曝光組：%1</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>已暫停</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>%1 merged, %2 done already, %3 failed, %4 stopped</source>
        <translation>已合成 %1，先前已完成 %2，失敗 %3，已停止 %4</translation>
    </message>
    <message>
        <source>Fi&amp;nd Again</source>
        <translation>重新尋找(&amp;N)</translation>
    </message>
    <message>
        <source>Finds the brackets of the folder anew, without your changes</source>
        <translation>放棄您的變更，重新尋找資料夾中的包圍曝光組</translation>
    </message>
    <message>
        <source>%1 of %2, about %3 left</source>
        <translation>%1 / %2，約剩 %3</translation>
    </message>
    <message>
        <source>Show Resu&amp;lts</source>
        <translation>顯示結果(&amp;L)</translation>
    </message>
    <message>
        <source>Go O&amp;n</source>
        <translation>繼續(&amp;N)</translation>
    </message>
    <message>
        <source>Pau&amp;se</source>
        <translation>暫停(&amp;S)</translation>
    </message>
</context>
<context>
    <name>BracketBatch</name>
    <message>
        <source>another file of this name is there</source>
        <translation>已有同名的其他檔案</translation>
    </message>
    <message>
        <source>another bracket gets the same name</source>
        <translation>另一組會得到相同的名稱</translation>
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
        <translation>失敗</translation>
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
        <translation>包圍曝光</translation>
    </message>
    <message>
        <source>Shots</source>
        <translation>照片</translation>
    </message>
    <message>
        <source>State</source>
        <translation>狀態</translation>
    </message>
    <message>
        <source>Brackets</source>
        <translation>包圍曝光組</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>&amp;Join</source>
        <translation>合併(&amp;J)</translation>
    </message>
    <message>
        <source>Sp&amp;lit Here</source>
        <translation>在此分割(&amp;L)</translation>
    </message>
    <message>
        <source>Take Out or Put &amp;Back</source>
        <translation>移出或放回(&amp;B)</translation>
    </message>
    <message>
        <source>Makes one bracket of the selected brackets and shots</source>
        <translation>將所選的組和照片合併為一組包圍曝光</translation>
    </message>
    <message>
        <source>Begins another bracket with the selected shot</source>
        <translation>從所選照片開始另一組包圍曝光</translation>
    </message>
    <message>
        <source>In no bracket</source>
        <translation>不屬於任何一組</translation>
    </message>
</context>
<context>
    <name>BrushBar</name>
    <message>
        <source>Brush</source>
        <translation>筆刷</translation>
    </message>
    <message>
        <source>Paint over the preview which shot a part comes from (P)</source>
        <translation>在預覽上塗抹，指定該部分取自哪張照片 (P)</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>橡皮擦</translation>
    </message>
    <message>
        <source>Erase what was painted (E, Alt, right button)</source>
        <translation>擦除塗抹的部分 (E、Alt、右鍵)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>復原</translation>
    </message>
    <message>
        <source>Take the last stroke back (Ctrl+Z)</source>
        <translation>復原上一筆 (Ctrl+Z)</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Take all strokes away</source>
        <translation>清除所有筆劃</translation>
    </message>
    <message>
        <source>Shot to paint with</source>
        <translation>用於塗抹的照片</translation>
    </message>
    <message>
        <source>What is painted comes from this shot. Shift and a click take what moved there, whole; Ctrl moves the picture.</source>
        <translation>塗抹的部分取自這張照片。按住 Shift 點按會整體取用那裡移動的物體；按住 Ctrl 可移動圖片。</translation>
    </message>
    <message>
        <source>Size of the brush</source>
        <translation>筆刷大小</translation>
    </message>
    <message>
        <source>Size of the brush ([ and ])</source>
        <translation>筆刷大小 ([ 和 ])</translation>
    </message>
</context>
<context>
    <name>CropTool</name>
    <message>
        <source>Crop</source>
        <translation>裁切</translation>
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
        <translation>所有照片共有的區域</translation>
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
        <translation>顯示圖層</translation>
    </message>
    <message>
        <source>Hide Layer</source>
        <translation>隱藏圖層</translation>
    </message>
</context>
<context>
    <name>DocumentSaver</name>
    <message>
        <source>Unsaved Changes</source>
        <translation>未儲存的變更</translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <translation>是否儲存對「%1」的變更？</translation>
    </message>
    <message>
        <source>If you do not save them, they will be lost.</source>
        <translation>如果不儲存，變更將會遺失。</translation>
    </message>
    <message>
        <source>no layer is visible</source>
        <translation>沒有可見的圖層</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>未能儲存</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2.</source>
        <translation>無法儲存「%1」：%2。</translation>
    </message>
    <message>
        <source>The picture is still open, with all its changes. You can save it elsewhere.</source>
        <translation>影像仍在開啟狀態，所有變更都還在。您可以將它儲存到其他位置。</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>另存新檔(&amp;A)…</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>記憶體不足</translation>
    </message>
    <message>
        <source>Show a layer in the list of layers, then save again.</source>
        <translation>請在圖層清單中顯示一個圖層，然後再次儲存。</translation>
    </message>
    <message>
        <source>%1 documents have unsaved changes.</source>
        <translation>有 %1 份文件尚未儲存變更。</translation>
    </message>
    <message>
        <source>&amp;Save All</source>
        <translation>全部儲存(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Discard All</source>
        <translation>全部捨棄(&amp;D)</translation>
    </message>
    <message>
        <source>“%1” has been changed by another program.</source>
        <translation>「%1」已被其他程式變更。</translation>
    </message>
    <message>
        <source>If you replace it, what was changed there is lost.</source>
        <translation>如果取代，那些變更將會遺失。</translation>
    </message>
    <message>
        <source>“%1” holds a gain map: bright screens show it brighter.</source>
        <translation>「%1」包含增益圖：高亮度螢幕會將其顯示得更亮。</translation>
    </message>
    <message>
        <source>Vesk cannot keep that. The file would look the same on all screens from now on.</source>
        <translation>Vesk 無法保留它。此後該檔案在所有螢幕上顯示相同。</translation>
    </message>
    <message>
        <source>Replace the File?</source>
        <translation>取代檔案？</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>取代(&amp;R)</translation>
    </message>
</context>
<context>
    <name>DocumentTabBar</name>
    <message>
        <source>&amp;Close</source>
        <translation>關閉(&amp;C)</translation>
    </message>
    <message>
        <source>Close &amp;Others</source>
        <translation>關閉其他(&amp;O)</translation>
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
        <translation>所有開啟的文件</translation>
    </message>
    <message>
        <source>From the Other Side</source>
        <translation>來自另一側</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>&amp;Edit</source>
        <translation>編輯(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <extracomment>%1 is what the user did last, such as &quot;Crop&quot;.</extracomment>
        <translation>復原(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>複製(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste as Document</source>
        <translation>貼上為文件(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Straighten…</source>
        <translation>拉直(&amp;S)…</translation>
    </message>
    <message>
        <source>Rotate &amp;Left</source>
        <translation>向左旋轉(&amp;L)</translation>
    </message>
    <message>
        <source>Rotate Ri&amp;ght</source>
        <translation>向右旋轉(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>復原：%1(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>重做：%1(&amp;R)</translation>
    </message>
    <message>
        <source>Pasted Picture</source>
        <extracomment>The name of a document from the clipboard.</extracomment>
        <translation>貼上的圖片</translation>
    </message>
    <message>
        <source>Cr&amp;op…</source>
        <translation>裁切(&amp;T)…</translation>
    </message>
</context>
<context>
    <name>EditorActions</name>
    <message>
        <source>&amp;Open…</source>
        <translation>開啟(&amp;O)…</translation>
    </message>
    <message>
        <source>Open &amp;Folder…</source>
        <translation>開啟資料夾(&amp;F)…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>結束(&amp;Q)</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>放大(&amp;I)</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>縮小(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Fit to Window</source>
        <translation>符合視窗大小(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Actual Size (100 %)</source>
        <translation>實際大小 (100%)(&amp;A)</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>符合視窗</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100%</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>全螢幕(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Next Document</source>
        <translation>下一份文件(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Previous Document</source>
        <translation>上一份文件(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Merge to HDR…</source>
        <translation>合併為 HDR(&amp;M)…</translation>
    </message>
    <message>
        <source>&amp;About Vesk</source>
        <translation>關於 Vesk(&amp;A)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開啟</translation>
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
        <translation>對齊並融合所選照片：可預覽、可調選項，產生新文件</translation>
    </message>
    <message>
        <source>Merge up to five shots by their weighted mean, in place of the document</source>
        <translation>以加權平均合併最多五張照片，並取代目前文件</translation>
    </message>
    <message>
        <source>Merge &amp;Brackets…</source>
        <translation>合成包圍曝光(&amp;B)…</translation>
    </message>
    <message>
        <source>Find the brackets of a folder and merge them all, as Merge Exposures does</source>
        <translation>尋找資料夾中的包圍曝光組，並如「合成曝光」一樣全部合成</translation>
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
        <translation>正在開啟 %1…</translation>
    </message>
    <message>
        <source>Opening %1 (%2 of %3)…</source>
        <translation>正在開啟 %1 (%2/%3)…</translation>
    </message>
</context>
<context>
    <name>Edits</name>
    <message>
        <source>Crop</source>
        <translation>裁切</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>旋轉</translation>
    </message>
    <message>
        <source>Straighten</source>
        <translation>拉直</translation>
    </message>
    <message>
        <source>Adjust</source>
        <translation>調整</translation>
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
        <translation>此資料夾中沒有影像</translation>
    </message>
    <message>
        <source>Film Strip</source>
        <translation>底片列</translation>
    </message>
</context>
<context>
    <name>FilmStripActions</name>
    <message>
        <source>&amp;Next Bracket</source>
        <translation>下一組包圍曝光(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Previous Bracket</source>
        <translation>上一組包圍曝光(&amp;P)</translation>
    </message>
    <message>
        <source>Select &amp;All Pictures</source>
        <translation>選取所有影像(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Hide Merged Results</source>
        <translation>隱藏合成結果(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Rating</source>
        <translation>評分(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Sort By</source>
        <translation>排序方式(&amp;S)</translation>
    </message>
    <message>
        <source>The rating of “%1” could not be saved: %2.</source>
        <extracomment>%1 is the name of a picture, %2 the reason.</extracomment>
        <translation>無法儲存「%1」的評分：%2。</translation>
    </message>
    <message>
        <source>No Stars</source>
        <translation>無星級</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>名稱(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Time Taken</source>
        <translation>拍攝時間(&amp;T)</translation>
    </message>
    <message>
        <source>There is no further bracket in this folder.</source>
        <translation>此資料夾中沒有其他包圍曝光組。</translation>
    </message>
    <message>
        <source>Bracket %1 of %2</source>
        <translation>包圍曝光 %1 / %2</translation>
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
        <translation>%1 張包圍曝光，%2</translation>
    </message>
    <message>
        <source>A merged picture</source>
        <translation>合成的影像</translation>
    </message>
    <message>
        <source>bracket %1 of %2</source>
        <translation>包圍曝光 %1 / %2</translation>
    </message>
    <message>
        <source>rated %1 of %2</source>
        <translation>評分 %1 / %2</translation>
    </message>
</context>
<context>
    <name>HdrCommand</name>
    <message>
        <source>Merge to HDR</source>
        <translation>合併為 HDR</translation>
    </message>
    <message>
        <source>%1 pictures are selected, but at most %2 can be merged.</source>
        <translation>已選取 %1 張圖片，但最多只能合併 %2 張。</translation>
    </message>
    <message>
        <source>Only these will be taken: %1</source>
        <translation>只會採用這些圖片：%1</translation>
    </message>
</context>
<context>
    <name>HistogramDock</name>
    <message>
        <source>Histogram</source>
        <translation>色階分佈圖</translation>
    </message>
    <message>
        <source>All channels</source>
        <translation>所有色版</translation>
    </message>
    <message>
        <source>Luminosity</source>
        <translation>亮度</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>紅</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>綠</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>藍</translation>
    </message>
    <message>
        <source>Logarithmic</source>
        <translation>對數</translation>
    </message>
</context>
<context>
    <name>JpegQualityDialog</name>
    <message>
        <source>JPEG Quality</source>
        <translation>JPEG 品質</translation>
    </message>
    <message>
        <source>&amp;Quality:</source>
        <translation>品質(&amp;Q)：</translation>
    </message>
    <message>
        <source>Low values give small files, high ones keep more detail. From about 95 on, losses are hard to see.</source>
        <translation>數值越低，檔案越小；數值越高，保留的細節越多。大約從 95 起，損失很難看出。</translation>
    </message>
    <message>
        <source>JPEG files cannot hold transparency: what is transparent becomes white.</source>
        <translation>JPEG 檔案不支援透明：透明部分將變為白色。</translation>
    </message>
</context>
<context>
    <name>LanguageMenu</name>
    <message>
        <source>&amp;Language</source>
        <translation>語言(&amp;L)</translation>
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
        <translation>勾選以顯示圖層</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>圖層</translation>
    </message>
</context>
<context>
    <name>LightCommand</name>
    <message>
        <source>%1 developed</source>
        <translation>%1 已顯影</translation>
    </message>
</context>
<context>
    <name>LightSaving</name>
    <message>
        <source>Radiance picture</source>
        <translation>Radiance 圖片</translation>
    </message>
    <message>
        <source>TIFF picture, floating point</source>
        <translation>TIFF 圖片，浮點</translation>
    </message>
    <message>
        <source>OpenEXR picture</source>
        <translation>OpenEXR 圖片</translation>
    </message>
    <message>
        <source>Save Light</source>
        <translation>儲存光照</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>未能儲存</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2.</source>
        <translation>無法儲存「%1」：%2。</translation>
    </message>
    <message>
        <source>files of this kind hold no light; choose .exr, .hdr or .tif</source>
        <translation>此類檔案不保存光照；請選擇 .exr、.hdr 或 .tif</translation>
    </message>
    <message>
        <source>JPEG picture that bright screens show brighter</source>
        <translation>JPEG 圖片，在高亮螢幕上顯示得更亮</translation>
    </message>
    <message>
        <source>AVIF picture for bright screens</source>
        <translation>用於高亮螢幕的 AVIF 圖片</translation>
    </message>
    <message>
        <source>JPEG XL picture for bright screens</source>
        <translation>用於高亮螢幕的 JPEG XL 圖片</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>記憶體不足</translation>
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
        <translation>關閉</translation>
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
        <translation>標出比白色更亮的部分(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Save Light…</source>
        <translation>儲存光照(&amp;S)…</translation>
    </message>
    <message>
        <source>&amp;Develop</source>
        <translation>顯影(&amp;D)</translation>
    </message>
    <message>
        <source>As one shot shows it</source>
        <translation>如單張照片所示</translation>
    </message>
    <message>
        <source>One curve for all of it</source>
        <translation>全圖用一條曲線</translation>
    </message>
    <message>
        <source>Each place at its best</source>
        <translation>各處取最佳</translation>
    </message>
    <message>
        <source>There is not enough memory to show this.</source>
        <translation>記憶體不足，無法顯示。</translation>
    </message>
    <message>
        <source>Not Developed</source>
        <translation>未能顯影</translation>
    </message>
    <message>
        <source>There is not enough memory for a picture of this size.</source>
        <translation>記憶體不足，無法產生此尺寸的圖片。</translation>
    </message>
    <message>
        <source>Developing…</source>
        <translation>正在顯影…</translation>
    </message>
    <message>
        <source>Light Not Saved</source>
        <translation>光照未儲存</translation>
    </message>
    <message>
        <source>The light is in no file yet. Close it without saving?</source>
        <translation>光照尚未存入檔案。不儲存就關閉嗎？</translation>
    </message>
</context>
<context>
    <name>LookBox</name>
    <message>
        <source>Look</source>
        <translation>外觀</translation>
    </message>
    <message>
        <source>Aut&amp;o</source>
        <translation>自動(&amp;O)</translation>
    </message>
    <message>
        <source>A look that suits the picture, to begin with</source>
        <translation>先套用適合該影像的外觀</translation>
    </message>
    <message>
        <source>Rese&amp;t</source>
        <translation>重設(&amp;T)</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>曝光：</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>亮部：</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>暗部：</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>對比：</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>黑點：</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>白點：</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>飽和度：</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Film Strip</source>
        <translation>底片列</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>檔案(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>工具(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>設定(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>說明(&amp;H)</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>語言</translation>
    </message>
    <message>
        <source>Vesk will speak this language when it is started again: %1</source>
        <translation>下次啟動後將使用此語言：%1</translation>
    </message>
    <message>
        <source>Tool Bar</source>
        <translation>工具列</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>已儲存 %1</translation>
    </message>
    <message>
        <source>Film Strip — %1</source>
        <translation>底片列 — %1</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>影像</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>所有檔案</translation>
    </message>
    <message>
        <source>Open Pictures</source>
        <translation>開啟影像</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>開啟資料夾</translation>
    </message>
    <message>
        <source>%1[*] — Vesk</source>
        <translation>%1[*] — Vesk</translation>
    </message>
    <message>
        <source>Fusion with preview</source>
        <translation>附預覽的融合</translation>
    </message>
    <message>
        <source>Weighted mean of up to five</source>
        <translation>最多五張的加權平均</translation>
    </message>
    <message>
        <source>&amp;Pictures</source>
        <translation>影像(&amp;P)</translation>
    </message>
</context>
<context>
    <name>MergeOptionsPanel</name>
    <message>
        <source>C&amp;rop to what all shots cover</source>
        <translation>裁切至共同區域(&amp;R)</translation>
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
        <translation>平均（同「合併為 HDR」）</translation>
    </message>
    <message>
        <source>&amp;Alignment:</source>
        <translation>對齊(&amp;A)：</translation>
    </message>
    <message>
        <source>&amp;Ghosts:</source>
        <extracomment>What moved between the shots.</extracomment>
        <translation>重影(&amp;G)：</translation>
    </message>
    <message>
        <source>Remove, automatically</source>
        <translation>自動去除</translation>
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
        <translation>透視</translation>
    </message>
    <message>
        <source>Whole pixels</source>
        <translation>整像素</translation>
    </message>
    <message>
        <source>None (tripod)</source>
        <translation>無（三腳架）</translation>
    </message>
    <message>
        <source>Light of the scene</source>
        <translation>場景的光照</translation>
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
        <translation>預覽</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>合成前</translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>請稍候…</translation>
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
        <translation>細節太少</translation>
    </message>
    <message>
        <source>it does not match the others</source>
        <translation>與其他照片不符</translation>
    </message>
    <message>
        <source>Reading the pictures…</source>
        <translation>正在讀取圖片…</translation>
    </message>
    <message>
        <source>Aligning…</source>
        <translation>正在對齊…</translation>
    </message>
    <message>
        <source>Looking for what moved…</source>
        <translation>正在尋找移動的部分…</translation>
    </message>
    <message>
        <source>Merging…</source>
        <translation>正在合成…</translation>
    </message>
    <message>
        <source>At most %1 pictures can be merged.</source>
        <translation>最多可合成 %1 張圖片。</translation>
    </message>
    <message>
        <source>The pictures have different sizes.</source>
        <translation>圖片尺寸不同。</translation>
    </message>
    <message>
        <source>Nothing is left to crop to: the pictures do not overlap.</source>
        <translation>圖片互不重疊，沒有可裁切的區域。</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>記憶體不足。</translation>
    </message>
    <message>
        <source>“%1” could not be read: %2.</source>
        <extracomment>A file, and why it could not be read.</extracomment>
        <translation>無法讀取「%1」：%2。</translation>
    </message>
    <message>
        <source>“%1” (%2 pixels) has not the size of “%3” (%4 pixels).</source>
        <translation>「%1」（%2 像素）與「%3」（%4 像素）尺寸不同。</translation>
    </message>
    <message>
        <source>left unaligned: %1</source>
        <translation>未對齊：%1</translation>
    </message>
    <message>
        <source>lies as it is</source>
        <translation>位置已吻合</translation>
    </message>
    <message>
        <source>aligned, %1 % sure</source>
        <extracomment>How far an alignment can be trusted, in percent.</extracomment>
        <translation>已對齊，可信度 %1 %</translation>
    </message>
    <message>
        <source>%1 was left unaligned: %2.</source>
        <translation>%1 未對齊：%2。</translation>
    </message>
    <message>
        <source>A painted part does not belong to these pictures.</source>
        <translation>塗抹的部分不屬於這些圖片。</translation>
    </message>
</context>
<context>
    <name>MergeWorkspace</name>
    <message>
        <source>A&amp;dd Shots…</source>
        <translation>加入照片(&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;Use as Reference</source>
        <translation>作為基準(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Merge</source>
        <translation>合成(&amp;M)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>關閉</translation>
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
        <translation>影像</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>所有檔案</translation>
    </message>
    <message>
        <source>Add Shots</source>
        <translation>加入照片</translation>
    </message>
    <message>
        <source>Add two or more shots of one scene, or drop them here.</source>
        <translation>請加入同一場景的兩張或更多照片，或拖放至此處。</translation>
    </message>
    <message>
        <source>Aligned: %1 of %2</source>
        <translation>已對齊：%2 張中的 %1 張</translation>
    </message>
    <message>
        <source>Choose Reference A&amp;utomatically</source>
        <translation>自動選擇基準(&amp;U)</translation>
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
        <translation>下一組包圍曝光(&amp;N)</translation>
    </message>
    <message>
        <source>Merge Exposures — bracket %1 of %2</source>
        <translation>合成曝光 — 第 %1 組，共 %2 組</translation>
    </message>
    <message>
        <source>Sharpening…</source>
        <translation>正在細化…</translation>
    </message>
</context>
<context>
    <name>OpenFailureBox</name>
    <message>
        <source>“%1”: %2</source>
        <extracomment>A file, and why it could not be opened.</extracomment>
        <translation>「%1」：%2</translation>
    </message>
    <message>
        <source>This file could not be opened:</source>
        <translation>無法開啟此檔案：</translation>
    </message>
    <message numerus="yes">
        <source>%n files could not be opened:</source>
        <translation>
            <numerusform>無法開啟 %n 個檔案：</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Opened</source>
        <translation>未能開啟</translation>
    </message>
</context>
<context>
    <name>OutputFile</name>
    <message>
        <source>Permission denied</source>
        <translation>沒有權限</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>超出磁碟配額</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>裝置上沒有剩餘空間</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>檔案系統為唯讀</translation>
    </message>
    <message>
        <source>there is no such folder</source>
        <translation>資料夾不存在</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>是資料夾</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>不是一般檔案</translation>
    </message>
    <message>
        <source>the file exists already</source>
        <translation>檔案已存在</translation>
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
        <translation>拍攝資訊</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>相機</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>鏡頭</translation>
    </message>
    <message>
        <source>Taken</source>
        <translation>拍攝時間</translation>
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
        <translation>%1 公釐</translation>
    </message>
    <message>
        <source>Correction</source>
        <extracomment>An exposure in stops, with its sign.</extracomment>
        <translation>曝光補償</translation>
    </message>
    <message>
        <source>%1 EV</source>
        <translation>%1 EV</translation>
    </message>
    <message>
        <source>Exposure time</source>
        <translation>曝光時間</translation>
    </message>
</context>
<context>
    <name>PictureDecoder</name>
    <message>
        <source>no such file</source>
        <translation>檔案不存在</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>是資料夾</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>不是一般檔案</translation>
    </message>
    <message>
        <source>no permission to read it</source>
        <translation>沒有讀取權限</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>無法讀取</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>檔案是空的</translation>
    </message>
    <message>
        <source>not a picture</source>
        <translation>不是影像</translation>
    </message>
    <message>
        <source>the picture is truncated or damaged</source>
        <translation>影像不完整或已損壞</translation>
    </message>
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
    <message>
        <source>cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>%1, a kind of picture that this build does not read</source>
        <extracomment>%1 is the name of a file format, such as HEIC</extracomment>
        <translation>%1：此版本無法讀取的圖片類型</translation>
    </message>
    <message>
        <source>the camera raw file cannot be converted: %1</source>
        <translation>無法轉換相機 RAW 檔案：%1</translation>
    </message>
</context>
<context>
    <name>PictureEncoder</name>
    <message>
        <source>JPEG files hold at most %1 pixels in a row or column</source>
        <translation>JPEG 檔案的每列或每行最多 %1 像素</translation>
    </message>
    <message>
        <source>the JPEG file could not be written</source>
        <translation>無法寫入 JPEG 檔案</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>記憶體不足</translation>
    </message>
    <message>
        <source>the PNG file could not be written</source>
        <translation>無法寫入 PNG 檔案</translation>
    </message>
    <message>
        <source>the OpenEXR file could not be written</source>
        <translation>無法寫入 OpenEXR 檔案</translation>
    </message>
    <message>
        <source>the Radiance file could not be written</source>
        <translation>無法寫入 Radiance 檔案</translation>
    </message>
    <message>
        <source>the TIFF file could not be written</source>
        <translation>無法寫入 TIFF 檔案</translation>
    </message>
    <message>
        <source>this program was built without OpenEXR</source>
        <translation>此程式建置時未包含 OpenEXR</translation>
    </message>
    <message>
        <source>the AVIF file could not be written</source>
        <translation>無法寫入 AVIF 檔案</translation>
    </message>
    <message>
        <source>the JPEG XL file could not be written</source>
        <translation>無法寫入 JPEG XL 檔案</translation>
    </message>
    <message>
        <source>this program was built without AVIF</source>
        <translation>此程式建置時未包含 AVIF</translation>
    </message>
    <message>
        <source>this program was built without JPEG XL</source>
        <translation>此程式建置時未包含 JPEG XL</translation>
    </message>
</context>
<context>
    <name>PictureRating</name>
    <message>
        <source>its XMP file cannot be read</source>
        <translation>無法讀取其 XMP 檔案</translation>
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
        <translation>按住 B 或此按鈕時顯示原始基準照片</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>分割</translation>
    </message>
    <message>
        <source>Before and after side by side; drag the line (S)</source>
        <translation>前後並排比較；可拖曳分界線 (S)</translation>
    </message>
    <message>
        <source>Blink</source>
        <translation>輪播</translation>
    </message>
    <message>
        <source>The aligned shots, one after the other (K)</source>
        <translation>依序顯示對齊後的照片 (K)</translation>
    </message>
    <message>
        <source>Clipping</source>
        <translation>剪裁警告</translation>
    </message>
    <message>
        <source>Red where it is too bright, blue where it is too dark (C)</source>
        <translation>過亮處顯示紅色，過暗處顯示藍色 (C)</translation>
    </message>
    <message>
        <source>Loupe</source>
        <translation>放大鏡</translation>
    </message>
    <message>
        <source>100 % around the pointer (L)</source>
        <translation>以 100% 顯示指標周圍 (L)</translation>
    </message>
    <message>
        <source>Fit</source>
        <extracomment>On a button: the picture as large as it fits.</extracomment>
        <translation>符合視窗</translation>
    </message>
    <message>
        <source>As large as it fits (Ctrl+0)</source>
        <translation>符合視窗大小 (Ctrl+0)</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100%</translation>
    </message>
    <message>
        <source>Pixel for pixel (Ctrl+1)</source>
        <translation>逐像素顯示 (Ctrl+1)</translation>
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
        <translation>最近開啟的檔案(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>清除清單(&amp;C)</translation>
    </message>
</context>
<context>
    <name>Recovery</name>
    <message>
        <source>the folder “%1” cannot be written</source>
        <translation>無法寫入資料夾「%1」</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>JPEG picture</source>
        <translation>JPEG 影像</translation>
    </message>
    <message>
        <source>PNG picture</source>
        <translation>PNG 影像</translation>
    </message>
    <message>
        <source>TIFF picture</source>
        <translation>TIFF 影像</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存新檔</translation>
    </message>
    <message>
        <source>PNG picture, 16 bits per channel</source>
        <translation>PNG 圖片，每色版 16 位元</translation>
    </message>
    <message>
        <source>PNG picture, 8 bits per channel</source>
        <translation>PNG 圖片，每色版 8 位元</translation>
    </message>
    <message>
        <source>TIFF picture, 16 bits per channel</source>
        <translation>TIFF 圖片，每色版 16 位元</translation>
    </message>
    <message>
        <source>TIFF picture, 8 bits per channel</source>
        <translation>TIFF 圖片，每色版 8 位元</translation>
    </message>
</context>
<context>
    <name>ScreenColoursMenu</name>
    <message>
        <source>&amp;Screen Colours</source>
        <translation>螢幕色彩(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;sRGB (Most Screens)</source>
        <translation>sRGB（大多數螢幕）(&amp;S)</translation>
    </message>
    <message>
        <source>Colour profiles</source>
        <translation>色彩描述檔</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>所有檔案</translation>
    </message>
    <message>
        <source>Profile of the Screen</source>
        <translation>螢幕描述檔</translation>
    </message>
    <message>
        <source>Screen Colours</source>
        <translation>螢幕色彩</translation>
    </message>
    <message>
        <source>“%1” is not a colour profile for a screen.</source>
        <translation>「%1」不是螢幕的色彩描述檔。</translation>
    </message>
    <message>
        <source>&amp;Profile File…</source>
        <translation>描述檔(&amp;P)…</translation>
    </message>
    <message>
        <source>&amp;Profile File: %1…</source>
        <translation>描述檔(&amp;P)：%1…</translation>
    </message>
</context>
<context>
    <name>SessionKeeper</name>
    <message>
        <source>Recovery</source>
        <translation>復原文件</translation>
    </message>
    <message>
        <source>Vesk did not end as it should. Unsaved changes were kept of:</source>
        <translation>Vesk 上次未正常結束。以下文件的未儲存變更已保留：</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>復原(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>稍後(&amp;L)</translation>
    </message>
    <message>
        <source>Could not be recovered: %1</source>
        <translation>無法復原：%1</translation>
    </message>
    <message>
        <source>Unsaved changes cannot be kept for recovery: %1</source>
        <translation>無法保留未儲存的變更以供復原：%1</translation>
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
        <translation>正在讀取…</translation>
    </message>
    <message>
        <source>★ reference</source>
        <extracomment>The shot that the others are aligned to.</extracomment>
        <translation>★ 基準</translation>
    </message>
</context>
<context>
    <name>StartPage</name>
    <message>
        <source>Drop photographs or a folder here</source>
        <translation>將相片或資料夾拖放到此處</translation>
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
        <translation>沿地平線或垂直物體畫一條線</translation>
    </message>
</context>
<context>
    <name>ThemeMenu</name>
    <message>
        <source>&amp;Theme</source>
        <translation>佈景主題(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;As the Desktop</source>
        <translation>依桌面設定(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>深色(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>淺色(&amp;L)</translation>
    </message>
</context>
<context>
    <name>VeskActionManager</name>
    <message>
        <source>&amp;Save</source>
        <translation>儲存(&amp;S)</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>另存新檔(&amp;A)…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>關閉(&amp;C)</translation>
    </message>
</context>
<context>
    <name>VeskProgressIndicator</name>
    <message>
        <source>Please wait</source>
        <translation>請稍候</translation>
    </message>
</context>
<context>
    <name>VeskRaw</name>
    <message>
        <source>Unspecified error</source>
        <translation>未指明的錯誤</translation>
    </message>
    <message>
        <source>Unsupported file format or not RAW file</source>
        <translation>格式不受支援，或不是 RAW 檔案</translation>
    </message>
    <message>
        <source>Unsufficient memory</source>
        <translation>記憶體不足</translation>
    </message>
    <message>
        <source>Corrupted data or unexpected EOF</source>
        <translation>資料已損壞或檔案意外結束</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>輸入/輸出錯誤</translation>
    </message>
    <message>
        <source>Cancelled by user callback</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>Image too big for processing</source>
        <translation>影像太大</translation>
    </message>
    <message>
        <source>The picture has more pixels than allowed</source>
        <translation>影像的像素數超過上限</translation>
    </message>
    <message>
        <source>The file is damaged</source>
        <translation>檔案已損壞</translation>
    </message>
    <message>
        <source>Not enough memory</source>
        <translation>記憶體不足</translation>
    </message>
    <message>
        <source>The raw library failed</source>
        <translation>RAW 程式庫發生錯誤</translation>
    </message>
    <message>
        <source>The raw converter cannot be started</source>
        <translation>無法啟動 RAW 轉換器</translation>
    </message>
    <message>
        <source>The raw converter ended before it was done</source>
        <translation>RAW 轉換器在完成之前已終止</translation>
    </message>
    <message>
        <source>The conversion took too long</source>
        <translation>轉換耗時過長</translation>
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
        <translation>關閉</translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>檢視(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Clipping Warning</source>
        <translation>溢位警告(&amp;C)</translation>
    </message>
    <message>
        <source>Side by &amp;Side</source>
        <translation>並排顯示(&amp;S)</translation>
    </message>
    <message>
        <source>Show another document beside this one</source>
        <translation>在此文件旁顯示另一個文件</translation>
    </message>
    <message>
        <source>&amp;Lock Views</source>
        <translation>鎖定檢視(&amp;L)</translation>
    </message>
    <message>
        <source>Zoom and place of both documents move together</source>
        <translation>兩個文件的縮放和位置同步變化</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>一款小巧的相片編輯器，可合併包圍曝光的相片。</translation>
    </message>
    <message>
        <source>Merge these pictures.</source>
        <translation>合成這些圖片。</translation>
    </message>
    <message>
        <source>Pictures to open, or a folder to show.</source>
        <translation>要開啟的影像或要顯示的資料夾。</translation>
    </message>
</context>
</TS>
