<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="sv_SE" sourcelanguage="en">
<context>
    <name>QPlatformTheme</name>
    <message><source>OK</source><translation>OK</translation></message>
    <message><source>Cancel</source><translation>Avbryt</translation></message>
    <message><source>Close</source><translation>Stäng</translation></message>
    <message><source>&amp;Yes</source><translation>&amp;Ja</translation></message>
    <message><source>&amp;No</source><translation>&amp;Nej</translation></message>
</context>
<context>
    <name>QMessageBox</name>
    <message><source>Show Details...</source><translation>Visa detaljer...</translation></message>
    <message><source>Hide Details...</source><translation>Dölj detaljer...</translation></message>
</context>
<context>
    <name>QLineEdit</name>
    <message><source>&amp;Undo</source><translation>&amp;Ångra</translation></message>
    <message><source>&amp;Redo</source><translation>&amp;Gör om</translation></message>
    <message><source>Cu&amp;t</source><translation>Klipp &amp;ut</translation></message>
    <message><source>&amp;Copy</source><translation>&amp;Kopiera</translation></message>
    <message><source>&amp;Paste</source><translation>Klistra &amp;in</translation></message>
    <message><source>Delete</source><translation>Ta bort</translation></message>
    <message><source>Select All</source><translation>Markera allt</translation></message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message><source>&amp;Undo</source><translation>&amp;Ångra</translation></message>
    <message><source>&amp;Redo</source><translation>&amp;Gör om</translation></message>
    <message><source>Cu&amp;t</source><translation>Klipp &amp;ut</translation></message>
    <message><source>&amp;Copy</source><translation>&amp;Kopiera</translation></message>
    <message><source>&amp;Paste</source><translation>Klistra &amp;in</translation></message>
    <message><source>Delete</source><translation>Ta bort</translation></message>
    <message><source>Select All</source><translation>Markera allt</translation></message>
</context>
</TS>
