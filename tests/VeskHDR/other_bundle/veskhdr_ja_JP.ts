<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en_US">
<context>
    <name>VeskToolHDR</name>
    <message>
        <source>Save</source>
        <translation>someone else's translation</translation>
    </message>
</context>
</TS>
