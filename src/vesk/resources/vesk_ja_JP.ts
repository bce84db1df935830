<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en_US">
<context>
    <name>AboutBox</name>
    <message>
        <source>About Vesk</source>
        <translation>Vesk について</translation>
    </message>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>露出を変えて撮影した写真を統合する小さな写真エディターです。</translation>
    </message>
    <message>
        <source>Free software under the MIT licence. Built on Qt %1, LibRaw, libexif and OpenCL.</source>
        <translation>MIT ライセンスのフリーソフトウェアです。Qt %1、LibRaw、libexif、OpenCL を使用しています。</translation>
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
        <translation>露出:</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>コントラスト:</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>ハイライト:</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>シャドウ:</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>ブラックポイント:</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>ホワイトポイント:</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>彩度:</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>Propose a look from how light and dark the picture is</source>
        <translation>画像の明暗から調整を提案します</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>リセット</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>比較</translation>
    </message>
    <message>
        <source>Hold to see the picture without these changes</source>
        <translation>押している間、これらの変更がない画像を表示します</translation>
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
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Merge Brackets</source>
        <translation>ブラケットを合成</translation>
    </message>
    <message>
        <source>&amp;Folder with shots:</source>
        <translation>写真のフォルダー(&amp;F):</translation>
    </message>
    <message>
        <source>Cho&amp;ose…</source>
        <translation>選択(&amp;O)…</translation>
    </message>
    <message>
        <source>Folder for res&amp;ults:</source>
        <translation>結果のフォルダー(&amp;U):</translation>
    </message>
    <message>
        <source>C&amp;hoose…</source>
        <translation>選択(&amp;H)…</translation>
    </message>
    <message>
        <source>For&amp;mat:</source>
        <translation>形式(&amp;M):</translation>
    </message>
    <message>
        <source>Looking for brackets…</source>
        <translation>ブラケットを探しています…</translation>
    </message>
    <message>
        <source>%1 brackets to merge</source>
        <translation>合成するブラケット：%1</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>一時停止中</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>%1 merged, %2 done already, %3 failed, %4 stopped</source>
        <translation>合成 %1、処理済み %2、失敗 %3、停止 %4</translation>
    </message>
    <message>
        <source>Fi&amp;nd Again</source>
        <translation>もう一度探す(&amp;N)</translation>
    </message>
    <message>
        <source>Finds the brackets of the folder anew, without your changes</source>
        <translation>変更を取り消して、フォルダーのブラケットを探し直します</translation>
    </message>
    <message>
        <source>%1 of %2, about %3 left</source>
        <translation>%1 / %2、残り約 %3</translation>
    </message>
    <message>
        <source>Show Resu&amp;lts</source>
        <translation>結果を表示(&amp;L)</translation>
    </message>
    <message>
        <source>Go O&amp;n</source>
        <translation>再開(&amp;N)</translation>
    </message>
    <message>
        <source>Pau&amp;se</source>
        <translation>一時停止(&amp;S)</translation>
    </message>
</context>
<context>
    <name>BracketBatch</name>
    <message>
        <source>another file of this name is there</source>
        <translation>同じ名前の別のファイルがあります</translation>
    </message>
    <message>
        <source>another bracket gets the same name</source>
        <translation>別のブラケットが同じ名前になります</translation>
    </message>
</context>
<context>
    <name>BracketTable</name>
    <message>
        <source>waiting</source>
        <translation>待機中</translation>
    </message>
    <message>
        <source>Merging…</source>
        <translation>合成中…</translation>
    </message>
    <message>
        <source>merged</source>
        <translation>合成</translation>
    </message>
    <message>
        <source>done already</source>
        <translation>処理済み</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>失敗</translation>
    </message>
    <message>
        <source>stopped</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1～%2</translation>
    </message>
    <message>
        <source>Bracket</source>
        <translation>ブラケット</translation>
    </message>
    <message>
        <source>Shots</source>
        <translation>写真</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状態</translation>
    </message>
    <message>
        <source>Brackets</source>
        <translation>ブラケット</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>&amp;Join</source>
        <translation>結合(&amp;J)</translation>
    </message>
    <message>
        <source>Sp&amp;lit Here</source>
        <translation>ここで分割(&amp;L)</translation>
    </message>
    <message>
        <source>Take Out or Put &amp;Back</source>
        <translation>外す/戻す(&amp;B)</translation>
    </message>
    <message>
        <source>Makes one bracket of the selected brackets and shots</source>
        <translation>選択したブラケットと写真を 1 つのブラケットにまとめます</translation>
    </message>
    <message>
        <source>Begins another bracket with the selected shot</source>
        <translation>選択した写真から新しいブラケットを始めます</translation>
    </message>
    <message>
        <source>In no bracket</source>
        <translation>ブラケットに入っていない写真</translation>
    </message>
</context>
<context>
    <name>BrushBar</name>
    <message>
        <source>Brush</source>
        <translation>ブラシ</translation>
    </message>
    <message>
        <source>Paint over the preview which shot a part comes from (P)</source>
        <translation>プレビューに塗り、その部分をどの写真から取るかを決める (P)</translation>
    </message>
    <message>
        <source>Eraser</source>
        <translation>消しゴム</translation>
    </message>
    <message>
        <source>Erase what was painted (E, Alt, right button)</source>
        <translation>塗った部分を消す (E、Alt、右ボタン)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Take the last stroke back (Ctrl+Z)</source>
        <translation>最後のひと塗りを取り消す (Ctrl+Z)</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>すべて消す</translation>
    </message>
    <message>
        <source>Take all strokes away</source>
        <translation>塗った部分をすべて消す</translation>
    </message>
    <message>
        <source>Shot to paint with</source>
        <translation>塗るときに使う写真</translation>
    </message>
    <message>
        <source>What is painted comes from this shot. Shift and a click take what moved there, whole; Ctrl moves the picture.</source>
        <translation>塗った部分はこの写真から取られます。Shift を押しながらクリックすると、そこで動いたものを丸ごと取ります。Ctrl で画像を動かします。</translation>
    </message>
    <message>
        <source>Size of the brush</source>
        <translation>ブラシの大きさ</translation>
    </message>
    <message>
        <source>Size of the brush ([ and ])</source>
        <translation>ブラシの大きさ ([ と ])</translation>
    </message>
</context>
<context>
    <name>CropTool</name>
    <message>
        <source>Crop</source>
        <translation>切り抜き</translation>
    </message>
    <message>
        <source>Ratio</source>
        <translation>縦横比</translation>
    </message>
    <message>
        <source>Free</source>
        <translation>自由</translation>
    </message>
    <message>
        <source>As it is</source>
        <translation>元の比率</translation>
    </message>
    <message>
        <source>What all shots cover</source>
        <translation>全ショットに共通の範囲</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
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
        <translation>レイヤーを表示</translation>
    </message>
    <message>
        <source>Hide Layer</source>
        <translation>レイヤーを隠す</translation>
    </message>
</context>
<context>
    <name>DocumentSaver</name>
    <message>
        <source>Unsaved Changes</source>
        <translation>保存されていない変更</translation>
    </message>
    <message>
        <source>Save the changes to “%1”?</source>
        <translation>「%1」への変更を保存しますか？</translation>
    </message>
    <message>
        <source>If you do not save them, they will be lost.</source>
        <translation>保存しない場合、変更は失われます。</translation>
    </message>
    <message>
        <source>no layer is visible</source>
        <translation>表示されているレイヤーがありません</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>保存できませんでした</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2.</source>
        <translation>「%1」を保存できませんでした：%2。</translation>
    </message>
    <message>
        <source>The picture is still open, with all its changes. You can save it elsewhere.</source>
        <translation>画像はすべての変更とともに開いたままです。別の場所に保存できます。</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>名前を付けて保存(&amp;A)…</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>無題</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>メモリーが足りません</translation>
    </message>
    <message>
        <source>Show a layer in the list of layers, then save again.</source>
        <translation>レイヤーの一覧でレイヤーを表示してから、もう一度保存してください。</translation>
    </message>
    <message>
        <source>%1 documents have unsaved changes.</source>
        <translation>%1 個のドキュメントに未保存の変更があります。</translation>
    </message>
    <message>
        <source>&amp;Save All</source>
        <translation>すべて保存(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Discard All</source>
        <translation>すべて破棄(&amp;D)</translation>
    </message>
    <message>
        <source>“%1” has been changed by another program.</source>
        <translation>「%1」は別のプログラムによって変更されています。</translation>
    </message>
    <message>
        <source>If you replace it, what was changed there is lost.</source>
        <translation>置き換えると、その変更は失われます。</translation>
    </message>
    <message>
        <source>“%1” holds a gain map: bright screens show it brighter.</source>
        <translation>「%1」にはゲインマップが含まれており、明るい画面ではより明るく表示されます。</translation>
    </message>
    <message>
        <source>Vesk cannot keep that. The file would look the same on all screens from now on.</source>
        <translation>Vesk はこれを保持できません。今後、このファイルはどの画面でも同じように表示されます。</translation>
    </message>
    <message>
        <source>Replace the File?</source>
        <translation>ファイルを置き換えますか?</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>置き換え(&amp;R)</translation>
    </message>
</context>
<context>
    <name>DocumentTabBar</name>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>Close &amp;Others</source>
        <translation>ほかを閉じる(&amp;O)</translation>
    </message>
</context>
<context>
    <name>DocumentTabs</name>
    <message>
        <source>Untitled</source>
        <translation>無題</translation>
    </message>
    <message>
        <source>%1 •</source>
        <extracomment>A document with unsaved changes; %1 is its name.</extracomment>
        <translation>%1 •</translation>
    </message>
    <message>
        <source>All open documents</source>
        <translation>開いているすべてのドキュメント</translation>
    </message>
    <message>
        <source>From the Other Side</source>
        <translation>反対側から</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <extracomment>%1 is what the user did last, such as &quot;Crop&quot;.</extracomment>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>やり直し(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>コピー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste as Document</source>
        <translation>ドキュメントとして貼り付け(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Straighten…</source>
        <translation>傾き補正(&amp;S)…</translation>
    </message>
    <message>
        <source>Rotate &amp;Left</source>
        <translation>左に回転(&amp;L)</translation>
    </message>
    <message>
        <source>Rotate Ri&amp;ght</source>
        <translation>右に回転(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>元に戻す: %1(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>やり直し: %1(&amp;R)</translation>
    </message>
    <message>
        <source>Pasted Picture</source>
        <extracomment>The name of a document from the clipboard.</extracomment>
        <translation>貼り付けた画像</translation>
    </message>
    <message>
        <source>Cr&amp;op…</source>
        <translation>切り抜き(&amp;T)…</translation>
    </message>
</context>
<context>
    <name>EditorActions</name>
    <message>
        <source>&amp;Open…</source>
        <translation>開く(&amp;O)…</translation>
    </message>
    <message>
        <source>Open &amp;Folder…</source>
        <translation>フォルダーを開く(&amp;F)…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>拡大(&amp;I)</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>縮小(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Fit to Window</source>
        <translation>ウィンドウに合わせる(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Actual Size (100 %)</source>
        <translation>実際のサイズ (100%)(&amp;A)</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>合わせる</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100%</translation>
    </message>
    <message>
        <source>F&amp;ull Screen</source>
        <translation>全画面表示(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Next Document</source>
        <translation>次のドキュメント(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Previous Document</source>
        <translation>前のドキュメント(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Merge to HDR…</source>
        <translation>HDR に統合(&amp;M)…</translation>
    </message>
    <message>
        <source>&amp;About Vesk</source>
        <translation>Vesk について(&amp;A)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <extracomment>The tip of a button: the command, and the keys that do the same.</extracomment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Merge &amp;Exposures…</source>
        <translation>露出を合成(&amp;E)…</translation>
    </message>
    <message>
        <source>Align the selected shots and fuse them: preview, options, a new document</source>
        <translation>選択した写真を位置合わせして融合します：プレビュー、オプション、新しい書類</translation>
    </message>
    <message>
        <source>Merge up to five shots by their weighted mean, in place of the document</source>
        <translation>最大 5 枚を加重平均で統合し、書類を置き換えます</translation>
    </message>
    <message>
        <source>Merge &amp;Brackets…</source>
        <translation>ブラケットを合成(&amp;B)…</translation>
    </message>
    <message>
        <source>Find the brackets of a folder and merge them all, as Merge Exposures does</source>
        <translation>フォルダーのブラケットを探し、「露出を合成」と同じ方法ですべて合成します</translation>
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
        <translation>%1 を開いています…</translation>
    </message>
    <message>
        <source>Opening %1 (%2 of %3)…</source>
        <translation>%1 を開いています (%2/%3)…</translation>
    </message>
</context>
<context>
    <name>Edits</name>
    <message>
        <source>Crop</source>
        <translation>切り抜き</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Straighten</source>
        <translation>傾き補正</translation>
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
        <translation>このフォルダーに画像はありません</translation>
    </message>
    <message>
        <source>Film Strip</source>
        <translation>フィルムストリップ</translation>
    </message>
</context>
<context>
    <name>FilmStripActions</name>
    <message>
        <source>&amp;Next Bracket</source>
        <translation>次のブラケット(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Previous Bracket</source>
        <translation>前のブラケット(&amp;P)</translation>
    </message>
    <message>
        <source>Select &amp;All Pictures</source>
        <translation>すべての画像を選択(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Hide Merged Results</source>
        <translation>合成結果を隠す(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Rating</source>
        <translation>評価(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Sort By</source>
        <translation>並べ替え(&amp;S)</translation>
    </message>
    <message>
        <source>The rating of “%1” could not be saved: %2.</source>
        <extracomment>%1 is the name of a picture, %2 the reason.</extracomment>
        <translation>「%1」の評価を保存できませんでした：%2。</translation>
    </message>
    <message>
        <source>No Stars</source>
        <translation>星なし</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>名前(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Time Taken</source>
        <translation>撮影日時(&amp;T)</translation>
    </message>
    <message>
        <source>There is no further bracket in this folder.</source>
        <translation>このフォルダーにほかのブラケットはありません。</translation>
    </message>
    <message>
        <source>Bracket %1 of %2</source>
        <translation>ブラケット %1 / %2</translation>
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
        <translation>%1 枚のブラケット、%2</translation>
    </message>
    <message>
        <source>A merged picture</source>
        <translation>合成された画像</translation>
    </message>
    <message>
        <source>bracket %1 of %2</source>
        <translation>ブラケット %1 / %2</translation>
    </message>
    <message>
        <source>rated %1 of %2</source>
        <translation>評価 %1 / %2</translation>
    </message>
</context>
<context>
    <name>HdrCommand</name>
    <message>
        <source>Merge to HDR</source>
        <translation>HDR に統合</translation>
    </message>
    <message>
        <source>%1 pictures are selected, but at most %2 can be merged.</source>
        <translation>%1 枚の画像が選択されていますが、統合できるのは %2 枚までです。</translation>
    </message>
    <message>
        <source>Only these will be taken: %1</source>
        <translation>次の画像だけを使います: %1</translation>
    </message>
</context>
<context>
    <name>HistogramDock</name>
    <message>
        <source>Histogram</source>
        <translation>ヒストグラム</translation>
    </message>
    <message>
        <source>All channels</source>
        <translation>全チャンネル</translation>
    </message>
    <message>
        <source>Luminosity</source>
        <translation>輝度</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>レッド</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>グリーン</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>ブルー</translation>
    </message>
    <message>
        <source>Logarithmic</source>
        <translation>対数</translation>
    </message>
</context>
<context>
    <name>JpegQualityDialog</name>
    <message>
        <source>JPEG Quality</source>
        <translation>JPEG の画質</translation>
    </message>
    <message>
        <source>&amp;Quality:</source>
        <translation>画質(&amp;Q)：</translation>
    </message>
    <message>
        <source>Low values give small files, high ones keep more detail. From about 95 on, losses are hard to see.</source>
        <translation>値が小さいほどファイルは小さくなり、大きいほど細部が保たれます。95 程度からは劣化がほとんど分かりません。</translation>
    </message>
    <message>
        <source>JPEG files cannot hold transparency: what is transparent becomes white.</source>
        <translation>JPEG ファイルは透明を扱えません。透明な部分は白になります。</translation>
    </message>
</context>
<context>
    <name>LanguageMenu</name>
    <message>
        <source>&amp;Language</source>
        <translation>言語(&amp;L)</translation>
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
        <translation>チェックするとレイヤーを表示します</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>レイヤー</translation>
    </message>
</context>
<context>
    <name>LightCommand</name>
    <message>
        <source>%1 developed</source>
        <translation>%1 現像</translation>
    </message>
</context>
<context>
    <name>LightSaving</name>
    <message>
        <source>Radiance picture</source>
        <translation>Radiance 画像</translation>
    </message>
    <message>
        <source>TIFF picture, floating point</source>
        <translation>TIFF 画像、浮動小数点</translation>
    </message>
    <message>
        <source>OpenEXR picture</source>
        <translation>OpenEXR 画像</translation>
    </message>
    <message>
        <source>Save Light</source>
        <translation>光を保存</translation>
    </message>
    <message>
        <source>Not Saved</source>
        <translation>保存できませんでした</translation>
    </message>
    <message>
        <source>“%1” could not be saved: %2.</source>
        <translation>「%1」を保存できませんでした：%2。</translation>
    </message>
    <message>
        <source>files of this kind hold no light; choose .exr, .hdr or .tif</source>
        <translation>この種類のファイルは光を保持できません。.exr、.hdr、.tif のいずれかを選んでください</translation>
    </message>
    <message>
        <source>JPEG picture that bright screens show brighter</source>
        <translation>JPEG 画像、高輝度画面ではより明るく表示</translation>
    </message>
    <message>
        <source>AVIF picture for bright screens</source>
        <translation>高輝度画面用の AVIF 画像</translation>
    </message>
    <message>
        <source>JPEG XL picture for bright screens</source>
        <translation>高輝度画面用の JPEG XL 画像</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>メモリーが足りません</translation>
    </message>
</context>
<context>
    <name>LightWindow</name>
    <message>
        <source>Exposure</source>
        <translation>露出</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>&amp;Method:</source>
        <translation>方法(&amp;M):</translation>
    </message>
    <message>
        <source>&amp;Exposure:</source>
        <translation>露出(&amp;E):</translation>
    </message>
    <message>
        <source>%1 — Light</source>
        <translation>%1 — 光</translation>
    </message>
    <message>
        <source>Mar&amp;k what is brighter than white</source>
        <translation>白より明るい部分を示す(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Save Light…</source>
        <translation>光を保存(&amp;S)…</translation>
    </message>
    <message>
        <source>&amp;Develop</source>
        <translation>現像(&amp;D)</translation>
    </message>
    <message>
        <source>As one shot shows it</source>
        <translation>1 枚の写真として</translation>
    </message>
    <message>
        <source>One curve for all of it</source>
        <translation>全体に 1 つの曲線</translation>
    </message>
    <message>
        <source>Each place at its best</source>
        <translation>場所ごとに最適化</translation>
    </message>
    <message>
        <source>There is not enough memory to show this.</source>
        <translation>表示するためのメモリーが足りません。</translation>
    </message>
    <message>
        <source>Not Developed</source>
        <translation>現像できませんでした</translation>
    </message>
    <message>
        <source>There is not enough memory for a picture of this size.</source>
        <translation>この大きさの画像にはメモリーが足りません。</translation>
    </message>
    <message>
        <source>Developing…</source>
        <translation>現像中…</translation>
    </message>
    <message>
        <source>Light Not Saved</source>
        <translation>光は保存されていません</translation>
    </message>
    <message>
        <source>The light is in no file yet. Close it without saving?</source>
        <translation>光はまだファイルに保存されていません。保存せずに閉じますか?</translation>
    </message>
</context>
<context>
    <name>LookBox</name>
    <message>
        <source>Look</source>
        <translation>仕上がり</translation>
    </message>
    <message>
        <source>Aut&amp;o</source>
        <translation>自動(&amp;O)</translation>
    </message>
    <message>
        <source>A look that suits the picture, to begin with</source>
        <translation>画像に合った仕上がりを出発点として設定します</translation>
    </message>
    <message>
        <source>Rese&amp;t</source>
        <translation>リセット(&amp;T)</translation>
    </message>
    <message>
        <source>Exposure:</source>
        <translation>露出:</translation>
    </message>
    <message>
        <source>Highlights:</source>
        <translation>ハイライト:</translation>
    </message>
    <message>
        <source>Shadows:</source>
        <translation>シャドウ:</translation>
    </message>
    <message>
        <source>Contrast:</source>
        <translation>コントラスト:</translation>
    </message>
    <message>
        <source>Black point:</source>
        <translation>ブラックポイント:</translation>
    </message>
    <message>
        <source>White point:</source>
        <translation>ホワイトポイント:</translation>
    </message>
    <message>
        <source>Saturation:</source>
        <translation>彩度:</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Film Strip</source>
        <translation>フィルムストリップ</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>ツール(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>設定(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>言語</translation>
    </message>
    <message>
        <source>Vesk will speak this language when it is started again: %1</source>
        <translation>次回の起動から次の言語で表示されます：%1</translation>
    </message>
    <message>
        <source>Tool Bar</source>
        <translation>ツールバー</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 を保存しました</translation>
    </message>
    <message>
        <source>Film Strip — %1</source>
        <translation>フィルムストリップ — %1</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>すべてのファイル</translation>
    </message>
    <message>
        <source>Open Pictures</source>
        <translation>画像を開く</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>フォルダーを開く</translation>
    </message>
    <message>
        <source>%1[*] — Vesk</source>
        <translation>%1[*] — Vesk</translation>
    </message>
    <message>
        <source>Fusion with preview</source>
        <translation>プレビュー付きの融合</translation>
    </message>
    <message>
        <source>Weighted mean of up to five</source>
        <translation>最大 5 枚の加重平均</translation>
    </message>
    <message>
        <source>&amp;Pictures</source>
        <translation>画像(&amp;P)</translation>
    </message>
</context>
<context>
    <name>MergeOptionsPanel</name>
    <message>
        <source>C&amp;rop to what all shots cover</source>
        <translation>共通部分に切り抜く(&amp;R)</translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>合成</translation>
    </message>
    <message>
        <source>Exposure fusion</source>
        <translation>露出融合</translation>
    </message>
    <message>
        <source>Mean (as Merge to HDR)</source>
        <translation>平均（「HDR に統合」と同じ）</translation>
    </message>
    <message>
        <source>&amp;Alignment:</source>
        <translation>位置合わせ(&amp;A):</translation>
    </message>
    <message>
        <source>&amp;Ghosts:</source>
        <extracomment>What moved between the shots.</extracomment>
        <translation>ゴースト(&amp;G):</translation>
    </message>
    <message>
        <source>Remove, automatically</source>
        <translation>自動で取り除く</translation>
    </message>
    <message>
        <source>Leave them in</source>
        <translation>そのまま残す</translation>
    </message>
    <message>
        <source>From %1</source>
        <extracomment>%1 is the name of a shot.</extracomment>
        <translation>%1 から</translation>
    </message>
    <message>
        <source>Perspective</source>
        <translation>遠近</translation>
    </message>
    <message>
        <source>Whole pixels</source>
        <translation>ピクセル単位</translation>
    </message>
    <message>
        <source>None (tripod)</source>
        <translation>なし（三脚）</translation>
    </message>
    <message>
        <source>Light of the scene</source>
        <translation>シーンの光</translation>
    </message>
    <message>
        <source>M&amp;ethod:</source>
        <translation>方法(&amp;E):</translation>
    </message>
</context>
<context>
    <name>MergePreview</name>
    <message>
        <source>Preview</source>
        <translation>プレビュー</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>合成前</translation>
    </message>
    <message>
        <source>One moment…</source>
        <translation>お待ちください…</translation>
    </message>
</context>
<context>
    <name>MergeTexts</name>
    <message>
        <source>it is too small</source>
        <translation>小さすぎます</translation>
    </message>
    <message>
        <source>it shows too little detail</source>
        <translation>細部が足りません</translation>
    </message>
    <message>
        <source>it does not match the others</source>
        <translation>ほかの写真と一致しません</translation>
    </message>
    <message>
        <source>Reading the pictures…</source>
        <translation>画像を読み込んでいます…</translation>
    </message>
    <message>
        <source>Aligning…</source>
        <translation>位置合わせ中…</translation>
    </message>
    <message>
        <source>Looking for what moved…</source>
        <translation>動いたものを探しています…</translation>
    </message>
    <message>
        <source>Merging…</source>
        <translation>合成中…</translation>
    </message>
    <message>
        <source>At most %1 pictures can be merged.</source>
        <translation>合成できるのは最大 %1 枚です。</translation>
    </message>
    <message>
        <source>The pictures have different sizes.</source>
        <translation>画像のサイズが異なります。</translation>
    </message>
    <message>
        <source>Nothing is left to crop to: the pictures do not overlap.</source>
        <translation>画像が重ならないため、切り抜く部分が残りません。</translation>
    </message>
    <message>
        <source>There is not enough memory.</source>
        <translation>メモリが足りません。</translation>
    </message>
    <message>
        <source>“%1” could not be read: %2.</source>
        <extracomment>A file, and why it could not be read.</extracomment>
        <translation>「%1」を読み込めませんでした：%2。</translation>
    </message>
    <message>
        <source>“%1” (%2 pixels) has not the size of “%3” (%4 pixels).</source>
        <translation>「%1」（%2 ピクセル）は「%3」（%4 ピクセル）とサイズが違います。</translation>
    </message>
    <message>
        <source>left unaligned: %1</source>
        <translation>位置合わせなし：%1</translation>
    </message>
    <message>
        <source>lies as it is</source>
        <translation>そのままで一致</translation>
    </message>
    <message>
        <source>aligned, %1 % sure</source>
        <extracomment>How far an alignment can be trusted, in percent.</extracomment>
        <translation>位置合わせ済み（%1%）</translation>
    </message>
    <message>
        <source>%1 was left unaligned: %2.</source>
        <translation>%1 は位置合わせされませんでした：%2。</translation>
    </message>
    <message>
        <source>A painted part does not belong to these pictures.</source>
        <translation>塗った部分がこれらの画像のものではありません。</translation>
    </message>
</context>
<context>
    <name>MergeWorkspace</name>
    <message>
        <source>A&amp;dd Shots…</source>
        <translation>写真を追加(&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;Use as Reference</source>
        <translation>基準にする(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Merge</source>
        <translation>合成(&amp;M)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Merge Exposures</source>
        <translation>露出を合成</translation>
    </message>
    <message>
        <source>S&amp;hots:</source>
        <translation>写真(&amp;H):</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>すべてのファイル</translation>
    </message>
    <message>
        <source>Add Shots</source>
        <translation>写真を追加</translation>
    </message>
    <message>
        <source>Add two or more shots of one scene, or drop them here.</source>
        <translation>同じ場面の写真を 2 枚以上追加するか、ここにドロップしてください。</translation>
    </message>
    <message>
        <source>Aligned: %1 of %2</source>
        <translation>位置合わせ済み：%2 枚中 %1 枚</translation>
    </message>
    <message>
        <source>Choose Reference A&amp;utomatically</source>
        <translation>基準を自動で選ぶ(&amp;U)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Not Merged</source>
        <translation>合成されませんでした</translation>
    </message>
    <message>
        <source>&amp;Next Bracket</source>
        <translation>次のブラケット(&amp;N)</translation>
    </message>
    <message>
        <source>Merge Exposures — bracket %1 of %2</source>
        <translation>露出を合成 — ブラケット %1 / %2</translation>
    </message>
    <message>
        <source>Sharpening…</source>
        <translation>鮮明にしています…</translation>
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
        <translation>次のファイルを開けませんでした：</translation>
    </message>
    <message numerus="yes">
        <source>%n files could not be opened:</source>
        <translation>
            <numerusform>%n 個のファイルを開けませんでした：</numerusform>
        </translation>
    </message>
    <message>
        <source>Not Opened</source>
        <translation>開けませんでした</translation>
    </message>
</context>
<context>
    <name>OutputFile</name>
    <message>
        <source>Permission denied</source>
        <translation>アクセスが許可されていません</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>ディスクの割り当て容量を超えました</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>デバイスに空き領域がありません</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>ファイルシステムが読み取り専用です</translation>
    </message>
    <message>
        <source>there is no such folder</source>
        <translation>フォルダーがありません</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>フォルダーです</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>通常のファイルではありません</translation>
    </message>
    <message>
        <source>the file exists already</source>
        <translation>ファイルは既に存在します</translation>
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
        <translation>撮影情報</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>カメラ</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>レンズ</translation>
    </message>
    <message>
        <source>Taken</source>
        <translation>撮影日時</translation>
    </message>
    <message>
        <source>Aperture</source>
        <translation>絞り</translation>
    </message>
    <message>
        <source>Sensitivity</source>
        <translation>感度</translation>
    </message>
    <message>
        <source>Focal length</source>
        <extracomment>A length in millimetres.</extracomment>
        <translation>焦点距離</translation>
    </message>
    <message>
        <source>%1 mm</source>
        <translation>%1 mm</translation>
    </message>
    <message>
        <source>Correction</source>
        <extracomment>An exposure in stops, with its sign.</extracomment>
        <translation>露出補正</translation>
    </message>
    <message>
        <source>%1 EV</source>
        <translation>%1 EV</translation>
    </message>
    <message>
        <source>Exposure time</source>
        <translation>露光時間</translation>
    </message>
</context>
<context>
    <name>PictureDecoder</name>
    <message>
        <source>no such file</source>
        <translation>ファイルがありません</translation>
    </message>
    <message>
        <source>is a directory</source>
        <translation>フォルダーです</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>通常のファイルではありません</translation>
    </message>
    <message>
        <source>no permission to read it</source>
        <translation>読み取りが許可されていません</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>読み取れません</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>ファイルが空です</translation>
    </message>
    <message>
        <source>not a picture</source>
        <translation>画像ではありません</translation>
    </message>
    <message>
        <source>the picture is truncated or damaged</source>
        <translation>画像が途中で切れているか、壊れています</translation>
    </message>
    <message>
        <source>the picture is too large (%1 x %2 pixels)</source>
        <translation>画像が大きすぎます (%1 × %2 ピクセル)</translation>
    </message>
    <message>
        <source>not enough memory for %1 x %2 pixels</source>
        <translation>%1 × %2 ピクセルにはメモリーが足りません</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>メモリーが足りません</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>キャンセルされました</translation>
    </message>
    <message>
        <source>%1, a kind of picture that this build does not read</source>
        <extracomment>%1 is the name of a file format, such as HEIC</extracomment>
        <translation>%1: このバージョンでは読み取れない種類の画像です</translation>
    </message>
    <message>
        <source>the camera raw file cannot be converted: %1</source>
        <translation>カメラの RAW ファイルを変換できません: %1</translation>
    </message>
</context>
<context>
    <name>PictureEncoder</name>
    <message>
        <source>JPEG files hold at most %1 pixels in a row or column</source>
        <translation>JPEG ファイルの縦横はそれぞれ最大 %1 ピクセルです</translation>
    </message>
    <message>
        <source>the JPEG file could not be written</source>
        <translation>JPEG ファイルを書き込めませんでした</translation>
    </message>
    <message>
        <source>not enough memory</source>
        <translation>メモリーが足りません</translation>
    </message>
    <message>
        <source>the PNG file could not be written</source>
        <translation>PNG ファイルを書き込めませんでした</translation>
    </message>
    <message>
        <source>the OpenEXR file could not be written</source>
        <translation>OpenEXR ファイルを書き込めませんでした</translation>
    </message>
    <message>
        <source>the Radiance file could not be written</source>
        <translation>Radiance ファイルを書き込めませんでした</translation>
    </message>
    <message>
        <source>the TIFF file could not be written</source>
        <translation>TIFF ファイルを書き込めませんでした</translation>
    </message>
    <message>
        <source>this program was built without OpenEXR</source>
        <translation>このプログラムは OpenEXR なしでビルドされています</translation>
    </message>
    <message>
        <source>the AVIF file could not be written</source>
        <translation>AVIF ファイルを書き込めませんでした</translation>
    </message>
    <message>
        <source>the JPEG XL file could not be written</source>
        <translation>JPEG XL ファイルを書き込めませんでした</translation>
    </message>
    <message>
        <source>this program was built without AVIF</source>
        <translation>このプログラムは AVIF なしでビルドされています</translation>
    </message>
    <message>
        <source>this program was built without JPEG XL</source>
        <translation>このプログラムは JPEG XL なしでビルドされています</translation>
    </message>
</context>
<context>
    <name>PictureRating</name>
    <message>
        <source>its XMP file cannot be read</source>
        <translation>XMP ファイルを読み込めません</translation>
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
        <translation>B またはこのボタンを押している間、基準の写真を表示します</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>分割</translation>
    </message>
    <message>
        <source>Before and after side by side; drag the line (S)</source>
        <translation>合成前と合成後を並べて表示。線はドラッグできます (S)</translation>
    </message>
    <message>
        <source>Blink</source>
        <translation>切替</translation>
    </message>
    <message>
        <source>The aligned shots, one after the other (K)</source>
        <translation>位置合わせした写真を順に表示 (K)</translation>
    </message>
    <message>
        <source>Clipping</source>
        <translation>白黒飛び</translation>
    </message>
    <message>
        <source>Red where it is too bright, blue where it is too dark (C)</source>
        <translation>白飛びは赤、黒つぶれは青で表示 (C)</translation>
    </message>
    <message>
        <source>Loupe</source>
        <translation>ルーペ</translation>
    </message>
    <message>
        <source>100 % around the pointer (L)</source>
        <translation>ポインターの周りを 100% で表示 (L)</translation>
    </message>
    <message>
        <source>Fit</source>
        <extracomment>On a button: the picture as large as it fits.</extracomment>
        <translation>合わせる</translation>
    </message>
    <message>
        <source>As large as it fits (Ctrl+0)</source>
        <translation>全体を表示 (Ctrl+0)</translation>
    </message>
    <message>
        <source>100 %</source>
        <extracomment>On a button: one pixel of the picture on one of the screen.</extracomment>
        <translation>100%</translation>
    </message>
    <message>
        <source>Pixel for pixel (Ctrl+1)</source>
        <translation>等倍で表示 (Ctrl+1)</translation>
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
        <translation>最近使ったファイル(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>一覧を消去(&amp;C)</translation>
    </message>
</context>
<context>
    <name>Recovery</name>
    <message>
        <source>the folder “%1” cannot be written</source>
        <translation>フォルダー「%1」に書き込めません</translation>
    </message>
</context>
<context>
    <name>SaveDialog</name>
    <message>
        <source>JPEG picture</source>
        <translation>JPEG 画像</translation>
    </message>
    <message>
        <source>PNG picture</source>
        <translation>PNG 画像</translation>
    </message>
    <message>
        <source>TIFF picture</source>
        <translation>TIFF 画像</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>名前を付けて保存</translation>
    </message>
    <message>
        <source>PNG picture, 16 bits per channel</source>
        <translation>PNG 画像、16 ビット/チャンネル</translation>
    </message>
    <message>
        <source>PNG picture, 8 bits per channel</source>
        <translation>PNG 画像、8 ビット/チャンネル</translation>
    </message>
    <message>
        <source>TIFF picture, 16 bits per channel</source>
        <translation>TIFF 画像、16 ビット/チャンネル</translation>
    </message>
    <message>
        <source>TIFF picture, 8 bits per channel</source>
        <translation>TIFF 画像、8 ビット/チャンネル</translation>
    </message>
</context>
<context>
    <name>ScreenColoursMenu</name>
    <message>
        <source>&amp;Screen Colours</source>
        <translation>画面の色(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;sRGB (Most Screens)</source>
        <translation>sRGB（ほとんどの画面）(&amp;S)</translation>
    </message>
    <message>
        <source>Colour profiles</source>
        <translation>カラープロファイル</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>すべてのファイル</translation>
    </message>
    <message>
        <source>Profile of the Screen</source>
        <translation>画面のプロファイル</translation>
    </message>
    <message>
        <source>Screen Colours</source>
        <translation>画面の色</translation>
    </message>
    <message>
        <source>“%1” is not a colour profile for a screen.</source>
        <translation>「%1」は画面用のカラープロファイルではありません。</translation>
    </message>
    <message>
        <source>&amp;Profile File…</source>
        <translation>プロファイル(&amp;P)…</translation>
    </message>
    <message>
        <source>&amp;Profile File: %1…</source>
        <translation>プロファイル(&amp;P): %1…</translation>
    </message>
</context>
<context>
    <name>SessionKeeper</name>
    <message>
        <source>Recovery</source>
        <translation>復元</translation>
    </message>
    <message>
        <source>Vesk did not end as it should. Unsaved changes were kept of:</source>
        <translation>Vesk が正しく終了しませんでした。次の未保存の変更が残っています:</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>復元(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>後で(&amp;L)</translation>
    </message>
    <message>
        <source>Could not be recovered: %1</source>
        <translation>復元できませんでした: %1</translation>
    </message>
    <message>
        <source>Unsaved changes cannot be kept for recovery: %1</source>
        <translation>復元用に変更を保存できません: %1</translation>
    </message>
</context>
<context>
    <name>ShotList</name>
    <message>
        <source>Shots</source>
        <translation>写真</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>読み込み中…</translation>
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
        <translation>写真またはフォルダーをここにドロップ</translation>
    </message>
</context>
<context>
    <name>StraightenTool</name>
    <message>
        <source>Straighten</source>
        <translation>傾き補正</translation>
    </message>
    <message>
        <source>Draw a line along the horizon, or along something upright</source>
        <translation>水平線、または垂直なものに沿って線を引いてください</translation>
    </message>
</context>
<context>
    <name>ThemeMenu</name>
    <message>
        <source>&amp;Theme</source>
        <translation>テーマ(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;As the Desktop</source>
        <translation>デスクトップに合わせる(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>ダーク(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>ライト(&amp;L)</translation>
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
        <translation>名前を付けて保存(&amp;A)…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
</context>
<context>
    <name>VeskProgressIndicator</name>
    <message>
        <source>Please wait</source>
        <translation>お待ちください</translation>
    </message>
</context>
<context>
    <name>VeskRaw</name>
    <message>
        <source>Unspecified error</source>
        <translation>不明なエラー</translation>
    </message>
    <message>
        <source>Unsupported file format or not RAW file</source>
        <translation>対応していない形式か、RAW ファイルではありません</translation>
    </message>
    <message>
        <source>Unsufficient memory</source>
        <translation>メモリーが足りません</translation>
    </message>
    <message>
        <source>Corrupted data or unexpected EOF</source>
        <translation>データが壊れているか、ファイルが途中で終わっています</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>入出力エラー</translation>
    </message>
    <message>
        <source>Cancelled by user callback</source>
        <translation>キャンセルされました</translation>
    </message>
    <message>
        <source>Image too big for processing</source>
        <translation>画像が大きすぎます</translation>
    </message>
    <message>
        <source>The picture has more pixels than allowed</source>
        <translation>画像のピクセル数が上限を超えています</translation>
    </message>
    <message>
        <source>The file is damaged</source>
        <translation>ファイルが壊れています</translation>
    </message>
    <message>
        <source>Not enough memory</source>
        <translation>メモリーが足りません</translation>
    </message>
    <message>
        <source>The raw library failed</source>
        <translation>RAW ライブラリーでエラーが発生しました</translation>
    </message>
    <message>
        <source>The raw converter cannot be started</source>
        <translation>RAW コンバーターを起動できません</translation>
    </message>
    <message>
        <source>The raw converter ended before it was done</source>
        <translation>RAW コンバーターが途中で終了しました</translation>
    </message>
    <message>
        <source>The conversion took too long</source>
        <translation>変換に時間がかかりすぎました</translation>
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
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>ViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Clipping Warning</source>
        <translation>白飛び・黒つぶれの警告(&amp;C)</translation>
    </message>
    <message>
        <source>Side by &amp;Side</source>
        <translation>並べて表示(&amp;S)</translation>
    </message>
    <message>
        <source>Show another document beside this one</source>
        <translation>別のドキュメントをこのドキュメントの横に表示します</translation>
    </message>
    <message>
        <source>&amp;Lock Views</source>
        <translation>表示を連動(&amp;L)</translation>
    </message>
    <message>
        <source>Zoom and place of both documents move together</source>
        <translation>両方のドキュメントの倍率と位置が連動します</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>A small photo editor that merges bracketed photographs.</source>
        <translation>露出を変えて撮影した写真を統合する小さな写真エディターです。</translation>
    </message>
    <message>
        <source>Merge these pictures.</source>
        <translation>これらの画像を合成します。</translation>
    </message>
    <message>
        <source>Pictures to open, or a folder to show.</source>
        <translation>開く画像、または表示するフォルダー。</translation>
    </message>
</context>
</TS>
