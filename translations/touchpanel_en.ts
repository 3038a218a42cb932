<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
    <name>DeviceFacts</name>
    <message numerus="yes">
        <source>%n target(s)</source>
        <translation>
            <numerusform>%n target</numerusform>
            <numerusform>%n targets</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s) and saved.</source>
        <translation>
            <numerusform>Settings were sent to %n touchscreen and saved.</numerusform>
            <numerusform>Settings were sent to %n touchscreens and saved.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s) and saved, but %1 did not take them: %2.</source>
        <translation>
            <numerusform>Settings were sent to %n touchscreen and saved, but %1 did not take them: %2.</numerusform>
            <numerusform>Settings were sent to %n touchscreens and saved, but %1 did not take them: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s), but not saved, and %1 did not take them: %2.</source>
        <translation>
            <numerusform>Settings were sent to %n touchscreen, but not saved, and %1 did not take them: %2.</numerusform>
            <numerusform>Settings were sent to %n touchscreens, but not saved, and %1 did not take them: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s) and saved, but the double click was not set: %2.</source>
        <translation>
            <numerusform>Settings were sent to %n touchscreen and saved, but the double click was not set: %2.</numerusform>
            <numerusform>Settings were sent to %n touchscreens and saved, but the double click was not set: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s), but not saved, and the double click was not set: %2.</source>
        <translation>
            <numerusform>Settings were sent to %n touchscreen, but not saved, and the double click was not set: %2.</numerusform>
            <numerusform>Settings were sent to %n touchscreens, but not saved, and the double click was not set: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s), but could not be saved for the next start: %2.</source>
        <translation>
            <numerusform>Settings were sent to %n touchscreen, but could not be saved for the next start: %2.</numerusform>
            <numerusform>Settings were sent to %n touchscreens, but could not be saved for the next start: %2.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TryOut</name>
    <message numerus="yes">
        <source>Touch the marked point. The result comes after %n more touch(es).</source>
        <translation>
            <numerusform>Touch the marked point. The result comes after %n more touch.</numerusform>
            <numerusform>Touch the marked point. The result comes after %n more touches.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n touch(es) drifted: see the dotted paths.</source>
        <translation>
            <numerusform>%n touch drifted: see the dotted path.</numerusform>
            <numerusform>%n touches drifted: see the dotted paths.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n touch(es) were slow: see the squares.</source>
        <translation>
            <numerusform>%n touch was slow: see the square.</numerusform>
            <numerusform>%n touches were slow: see the squares.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>WaitNotice</name>
    <message numerus="yes">
        <source>The touchscreen cannot be opened yet: %2. Trying again (attempt %n of 50)...</source>
        <translation>
            <numerusform>The touchscreen cannot be opened yet: %2. Trying again (attempt %n of 50)...</numerusform>
            <numerusform>The touchscreen cannot be opened yet: %2. Trying again (attempt %n of 50)...</numerusform>
        </translation>
    </message>
</context>
</TS>
