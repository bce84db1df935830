<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en_US">
<context>
    <name>PictureDecoder</name>
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
</context>
<context>
    <name>VeskOpenCLDeviceSelection</name>
    <message>
        <source>VeskOpenCLDeviceSelection</source>
        <translation>OpenCL デバイスの選択</translation>
    </message>
    <message>
        <source>OpenCL Platform</source>
        <translation>OpenCL プラットフォーム</translation>
    </message>
    <message>
        <source>OpenCL Device</source>
        <translation>OpenCL デバイス</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>項目</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>OpenCL Device Selection</source>
        <translation>OpenCL デバイスの選択</translation>
    </message>
    <message>
        <source>OpenCL Platform:</source>
        <translation>OpenCL プラットフォーム：</translation>
    </message>
    <message>
        <source>OpenCL Version:</source>
        <translation>OpenCL バージョン：</translation>
    </message>
    <message>
        <source>OpenCL Device Name</source>
        <translation>デバイス名</translation>
    </message>
    <message>
        <source>OpenCL Device Vendor</source>
        <translation>ベンダー</translation>
    </message>
    <message>
        <source>OpenCL Device Driver Version</source>
        <translation>ドライバーのバージョン</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Type</source>
        <translation>グローバルキャッシュの種類</translation>
    </message>
    <message>
        <source>OpenCL Device Cores</source>
        <translation>演算ユニット数</translation>
    </message>
    <message>
        <source>OpenCL Device Frequency</source>
        <translation>動作周波数</translation>
    </message>
    <message>
        <source>OpenCL Device Local Memory Size</source>
        <translation>ローカルメモリ容量</translation>
    </message>
    <message>
        <source>OpenCL Device Global Memory Size</source>
        <translation>グローバルメモリ容量</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Size</source>
        <translation>グローバルキャッシュ容量</translation>
    </message>
    <message>
        <source>OpenCL Device Global Cache Line</source>
        <translation>キャッシュライン（バイト）</translation>
    </message>
    <message>
        <source>OpenCL Device Image Support</source>
        <translation>イメージのサポート</translation>
    </message>
    <message>
        <source>OpenCL Device Type</source>
        <translation>デバイスの種類</translation>
    </message>
    <message>
        <source>OpenCL Device Extensions</source>
        <translation>拡張機能</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Read Only</source>
        <translation>読み取り専用</translation>
    </message>
    <message>
        <source>Read and Write</source>
        <translation>読み取りと書き込み</translation>
    </message>
    <message>
        <source>Support</source>
        <translation>あり</translation>
    </message>
    <message>
        <source>No Support</source>
        <translation>なし</translation>
    </message>
</context>
<context>
    <name>VeskToolHDR</name>
    <message>
        <source>Alert</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>This document has been modified. Save it?</source>
        <translation>このドキュメントは変更されています。保存しますか？</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>保存しない</translation>
    </message>
    <message>
        <source>You can only add up to 5 pictures.</source>
        <translation>追加できる画像は 5 枚までです。</translation>
    </message>
    <message>
        <source>%1 is not a valid image!</source>
        <translation>%1 は有効な画像ではありません。</translation>
    </message>
    <message>
        <source>Pictures shall be in same size.</source>
        <translation>画像はすべて同じサイズである必要があります。</translation>
    </message>
    <message>
        <source>HDR merge failed! Pictures shall be in same size.</source>
        <translation>HDR への統合に失敗しました。画像はすべて同じサイズである必要があります。</translation>
    </message>
    <message>
        <source>used: %1 ms</source>
        <translation>処理時間：%1 ミリ秒</translation>
    </message>
    <message>
        <source>layer</source>
        <translation>レイヤー</translation>
    </message>
</context>
<context>
    <name>VeskToolHDRWidget</name>
    <message>
        <source>Image files(</source>
        <translation>画像ファイル (</translation>
    </message>
    <message>
        <source>Open a image for HDR</source>
        <translation>HDR に統合する画像を開く</translation>
    </message>
    <message>
        <source>Use CUDA</source>
        <translatorcomment>No longer shown. Kept so that the catalogue stays complete.</translatorcomment>
        <translation>CUDA を使用</translation>
    </message>
</context>
<context>
    <name>VeskToolHDRWidgetClass</name>
    <message>
        <source>Merge to HDR</source>
        <translation>HDR に統合</translation>
    </message>
    <message>
        <source>Source Pictures</source>
        <translation>ソース画像</translation>
    </message>
    <message>
        <source>Choose two or more pictures from a set of exposures to
merge and create a High Dynamic Range image.</source>
        <translation>露出の異なる画像を 2 枚以上選択してください。
1 枚の HDR（ハイダイナミックレンジ）画像に統合します。</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>参照...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>オプション</translation>
    </message>
    <message>
        <source>Use OpenCL with</source>
        <translation>OpenCL を使用</translation>
    </message>
    <message>
        <source>Changed device</source>
        <translation>デバイスを変更</translation>
    </message>
    <message>
        <source>Attempt to automatically align source images</source>
        <translation>ソース画像の自動位置合わせを試みる</translation>
    </message>
</context>
</TS>
