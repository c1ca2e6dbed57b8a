<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>CompactLook</name>
    <message numerus="yes">
        <source>%n held</source>
        <translation>
            <numerusform>%n held</numerusform>
            <numerusform>%n held</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FilesSection</name>
    <message numerus="yes">
        <source>Drag all %n</source>
        <translation>
            <numerusform>Drag %n</numerusform>
            <numerusform>Drag all %n</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>FocusToolsView</name>
    <message numerus="yes">
        <source>Focus: %n minutes</source>
        <translation>
            <numerusform>Focus: %n minute</numerusform>
            <numerusform>Focus: %n minutes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Break: %n minutes</source>
        <translation>
            <numerusform>Break: %n minute</numerusform>
            <numerusform>Break: %n minutes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Today: %n focus sessions</source>
        <translation>
            <numerusform>Today: %n focus session</numerusform>
            <numerusform>Today: %n focus sessions</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes</source>
        <translation>
            <numerusform>%n minute</numerusform>
            <numerusform>%n minutes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GroupItems</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LaunchPanel</name>
    <message numerus="yes">
        <source>Open %n items?</source>
        <translation>
            <numerusform>Open %n item?</numerusform>
            <numerusform>Open %n items?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ShownText</name>
    <message numerus="yes">
        <source>Blank text, %Ln characters</source>
        <translation>
            <numerusform>Blank text, %Ln character</numerusform>
            <numerusform>Blank text, %Ln characters</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Toolbar</name>
    <message numerus="yes">
        <source>%n held</source>
        <translation>
            <numerusform>%n held</numerusform>
            <numerusform>%n held</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>perchly::Meetings</name>
    <message numerus="yes">
        <source>Starts in %n min</source>
        <translation>
            <numerusform>Starts in %n min</numerusform>
            <numerusform>Starts in %n min</numerusform>
        </translation>
    </message>
</context>
</TS>
