<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>AboutSheet</name>
    <message>
        <source>About Touch Panel</source>
        <translation>Info zu Touch Panel</translation>
    </message>
    <message>
        <source>Touch Panel</source>
        <translation>Touch Panel</translation>
    </message>
    <message>
        <source>Calibrates USB touchscreens and sets how touches act.</source>
        <translation>Kalibriert USB-Touchscreens und legt fest, was Berührungen bewirken.</translation>
    </message>
    <message>
        <source>Driver version</source>
        <translation>Treiberversion</translation>
    </message>
    <message>
        <source>Build version</source>
        <translation>Programmversion</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>Lizenz</translation>
    </message>
    <message>
        <source>&amp;Libraries and their licences</source>
        <translation>&amp;Bibliotheken und ihre Lizenzen</translation>
    </message>
    <message>
        <source>Libraries and their licences</source>
        <translation>Bibliotheken und ihre Lizenzen</translation>
    </message>
    <message>
        <source>Copy &amp;diagnostics report</source>
        <translation>&amp;Diagnosebericht kopieren</translation>
    </message>
    <message>
        <source>Copy versions, touchscreens, driver state and the last diagnostic lines, to send to support</source>
        <translation>Versionen, Touchscreens, Zustand des Treibers und die letzten Diagnosezeilen kopieren, um sie dem Kundendienst zu senden</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>The report is on the clipboard.</source>
        <translation>Der Bericht ist in der Zwischenablage.</translation>
    </message>
</context>
<context>
    <name>Alert</name>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Not found touch device.</source>
        <translation>Kein Touchscreen gefunden.</translation>
    </message>
    <message>
        <source>To get the device parameters failed, please try again.</source>
        <translation>Die Parameter des Geräts konnten nicht gelesen werden. Bitte noch einmal versuchen.</translation>
    </message>
    <message>
        <source>Unable to open device: %1.</source>
        <translation>Das Gerät kann nicht geöffnet werden: %1.</translation>
    </message>
    <message>
        <source>The configuration of this touchscreen could not be read.</source>
        <translation>Die Konfiguration dieses Touchscreens konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>OK at the end of a calibration overwrites it, and what it held is lost. To have it read again, unplug the touchscreen and plug it in.</source>
        <translation>OK am Ende einer Kalibrierung überschreibt sie, und was sie enthielt, ist verloren. Damit sie neu gelesen wird, ziehen Sie den Touchscreen ab, und schließen Sie ihn wieder an.</translation>
    </message>
    <message>
        <source>Calibrate</source>
        <translation>Kalibrieren</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>It is being opened and read.</source>
        <translation>Er wird geöffnet und gelesen.</translation>
    </message>
    <message>
        <source>It may not have been authorised. See to that, then plug the touchscreen in again.</source>
        <translation>Vielleicht ist er nicht zugelassen. Lassen Sie ihn zu, und schließen Sie ihn dann neu an.</translation>
    </message>
    <message>
        <source>Unplug it and plug it in again. If that does not help, restart the touch driver service.</source>
        <translation>Ziehen Sie ihn ab, und schließen Sie ihn neu an. Hilft das nicht, starten Sie den Touch-Treiberdienst neu.</translation>
    </message>
    <message>
        <source>Add the missing setting to that file, or remove the file to start from the defaults. Then plug the touchscreen in again.</source>
        <translation>Ergänzen Sie die fehlende Einstellung, oder entfernen Sie die Datei, um mit den Vorgaben zu beginnen. Schließen Sie den Touchscreen dann neu an.</translation>
    </message>
    <message>
        <source>You are not permitted to use touchscreens. Ask whoever looks after this machine for access.</source>
        <translation>Sie dürfen Touchscreens nicht benutzen. Bitten Sie die Verwaltung dieses Rechners um Zugang.</translation>
    </message>
    <message>
        <source>Another program is using it. Close that program, then plug the touchscreen in again.</source>
        <translation>Ein anderes Programm benutzt ihn. Beenden Sie es, und schließen Sie den Touchscreen dann neu an.</translation>
    </message>
    <message>
        <source>It was unplugged. Plug it in again.</source>
        <translation>Er wurde abgezogen. Schließen Sie ihn wieder an.</translation>
    </message>
    <message>
        <source>Unplug the touchscreen and plug it in again.</source>
        <translation>Ziehen Sie den Touchscreen ab, und schließen Sie ihn neu an.</translation>
    </message>
    <message>
        <source>The touch driver service runs, but there is no touchscreen that it serves. Plug one in, then start this program again.</source>
        <translation>Der Touch-Treiberdienst läuft, bedient aber keinen Touchscreen. Schließen Sie einen an, und starten Sie dieses Programm neu.</translation>
    </message>
    <message>
        <source>You are not permitted to use the touch driver service. Ask whoever looks after this machine for access.</source>
        <translation>Sie dürfen den Touch-Treiberdienst nicht benutzen. Bitten Sie die Verwaltung dieses Rechners um Zugang.</translation>
    </message>
    <message>
        <source>The touch driver service is of another version than this program. Install both in the same version.</source>
        <translation>Der Touch-Treiberdienst hat eine andere Version als dieses Programm. Installieren Sie beide in derselben Version.</translation>
    </message>
    <message>
        <source>The touch driver service does not run or does not answer. Start it, then start this program again.</source>
        <translation>Der Touch-Treiberdienst läuft nicht oder antwortet nicht. Starten Sie ihn und danach dieses Programm neu.</translation>
    </message>
</context>
<context>
    <name>CalibrationScreen</name>
    <message>
        <source>Note:
1. When calibrating, to get better calibration result, the user&apos;s head should keep still;
2. The calibration coordinates are detemined by the point where the finger leaves the touchscreen;
3. The bull&apos;s eye is only for reference, it&apos;s not neccessarily the optimal calibration point, the user should
     aim the bull&apos;s eye the first calibration, if the result is not satisfying, the user can recalibrate and
     deliberately move slightly apart from the bull&apos;s eye.
</source>
        <translation>Hinweise:
1. Für ein gutes Ergebnis sollte der Kopf beim Kalibrieren ruhig gehalten werden.
2. Es zählt der Punkt, an dem der Finger den Touchscreen verlässt.
3. Die Zielscheibe ist nur ein Anhaltspunkt, nicht unbedingt der beste Punkt zum Kalibrieren. Beim ersten
     Mal auf ihre Mitte zielen; ist das Ergebnis nicht zufriedenstellend, erneut kalibrieren und dabei
     absichtlich leicht neben die Mitte tippen.
</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbruch</translation>
    </message>
    <message>
        <source>ReCalibrate</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Target %1 of %2</source>
        <translation>Ziel %1 von %2</translation>
    </message>
    <message>
        <source>Once more: target %1 of %2</source>
        <translation>Noch einmal: Ziel %1 von %2</translation>
    </message>
    <message>
        <source>Ends by itself in %1 s</source>
        <translation>Endet von selbst in %1 s</translation>
    </message>
    <message>
        <source>The touches fit each other.</source>
        <translation>Die Berührungen passen zueinander.</translation>
    </message>
    <message>
        <source>Error of the touches: mean %1 px, largest %2 px</source>
        <translation>Abweichung der Berührungen: Mittel %1 px, größte %2 px</translation>
    </message>
    <message>
        <source>Error of the touches: mean %1 px (%3 mm), largest %2 px (%4 mm)</source>
        <translation>Abweichung der Berührungen: Mittel %1 px (%3 mm), größte %2 px (%4 mm)</translation>
    </message>
    <message>
        <source>Drag a rectangle from its upper left to its lower right corner.</source>
        <translation>Ein Rechteck von links oben nach rechts unten aufziehen.</translation>
    </message>
    <message>
        <source>The targets will stand in a box of that size at the lower left of the screen.</source>
        <translation>Die Ziele stehen dann in einem Feld dieser Größe links unten auf dem Bildschirm.</translation>
    </message>
    <message>
        <source>The touch with a ring does not fit the others.</source>
        <translation>Die Berührung mit Ring passt nicht zu den anderen.</translation>
    </message>
    <message>
        <source>Touch the ring to take this touch again.</source>
        <translation>Den Ring berühren, um diese Berührung zu wiederholen.</translation>
    </message>
    <message>
        <source>The touches with a ring do not fit the others.</source>
        <translation>Die Berührungen mit Ring passen nicht zu den anderen.</translation>
    </message>
    <message>
        <source>Touch a ring to take that touch again.</source>
        <translation>Einen Ring berühren, um diese Berührung zu wiederholen.</translation>
    </message>
    <message>
        <source>These touches do not fit together.</source>
        <translation>Diese Berührungen passen nicht zusammen.</translation>
    </message>
    <message>
        <source>These touches give no calibration; nothing has changed.</source>
        <translation>Diese Berührungen ergeben keine Kalibrierung; nichts wurde geändert.</translation>
    </message>
    <message>
        <source>This calibration folds the screen: different places act as the same one.</source>
        <translation>Diese Kalibrierung faltet den Bildschirm: verschiedene Stellen wirken wie dieselbe.</translation>
    </message>
    <message>
        <source>Touch ReCalibrate to take all touches again.</source>
        <translation>„Wiederholen“ berühren, um alle Berührungen zu wiederholen.</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Kalibrierung</translation>
    </message>
    <message>
        <source>Touch this screen.</source>
        <translation>Diesen Bildschirm berühren.</translation>
    </message>
    <message>
        <source>Escape goes back.</source>
        <translation>Escape führt zurück.</translation>
    </message>
</context>
<context>
    <name>Controls</name>
    <message>
        <source>Disable Touch</source>
        <translation>Touch ausschalten</translation>
    </message>
    <message>
        <source>Enable Touch</source>
        <translation>Touch einschalten</translation>
    </message>
</context>
<context>
    <name>DeviceFacts</name>
    <message>
        <source>Infrared touchscreen</source>
        <translation>Infrarot-Touchscreen</translation>
    </message>
    <message>
        <source>Optical touchscreen</source>
        <translation>Optischer Touchscreen</translation>
    </message>
    <message>
        <source>Touchscreen whose calibration is kept in a file</source>
        <translation>Touchscreen mit Kalibrierung in einer Datei</translation>
    </message>
    <message>
        <source>Touchscreen</source>
        <translation>Touchscreen</translation>
    </message>
    <message>
        <source>mean error %1 mm, largest %2 mm</source>
        <translation>mittlerer Fehler %1 mm, größter %2 mm</translation>
    </message>
    <message>
        <source>mean error %1 pixels, largest %2 pixels</source>
        <translation>mittlerer Fehler %1 Pixel, größter %2 Pixel</translation>
    </message>
    <message>
        <source>None; touches land where the touchscreen says.</source>
        <translation>Keine; Berührungen zählen, wo der Touchscreen sie meldet.</translation>
    </message>
    <message>
        <source>There is one; when it was made is not known here.</source>
        <translation>Vorhanden; von wann sie ist, ist hier nicht bekannt.</translation>
    </message>
    <message numerus="yes">
        <source>%n target(s)</source>
        <translation>
            <numerusform>%n Ziel</numerusform>
            <numerusform>%n Ziele</numerusform>
        </translation>
    </message>
    <message>
        <source>click on touch</source>
        <translation>Klick beim Berühren</translation>
    </message>
    <message>
        <source>click on release</source>
        <translation>Klick beim Loslassen</translation>
    </message>
    <message>
        <source>drag</source>
        <translation>Ziehen</translation>
    </message>
    <message>
        <source>multi-touch</source>
        <translation>Multi-Touch</translation>
    </message>
    <message>
        <source>touch mode %1</source>
        <translation>Touch-Modus %1</translation>
    </message>
    <message>
        <source>Not known: the touch driver service does not answer.</source>
        <translation>Nicht bekannt: Der Touch-Treiberdienst antwortet nicht.</translation>
    </message>
    <message>
        <source>None: the touch driver service does not serve this touchscreen.</source>
        <translation>Keine: Der Touch-Treiberdienst bedient diesen Touchscreen nicht.</translation>
    </message>
    <message>
        <source>Not known: the touch driver service does not tell them.</source>
        <translation>Nicht bekannt: Der Touch-Treiberdienst nennt sie nicht.</translation>
    </message>
    <message>
        <source>Touch is on</source>
        <translation>Touch ist eingeschaltet</translation>
    </message>
    <message>
        <source>Touch is off</source>
        <translation>Touch ist ausgeschaltet</translation>
    </message>
    <message>
        <source>right click after %1 ms</source>
        <translation>Rechtsklick nach %1 ms</translation>
    </message>
    <message>
        <source>click range %1</source>
        <translation>Klickbereich %1</translation>
    </message>
    <message>
        <source>smoothing %1</source>
        <translation>Glättung %1</translation>
    </message>
    <message>
        <source>rest after %1 ms</source>
        <translation>Ruhe nach %1 ms</translation>
    </message>
    <message>
        <source>Try out</source>
        <translation>Ausprobieren</translation>
    </message>
    <message>
        <source>See on the whole screen where touches land (F11)</source>
        <translation>Auf dem ganzen Bildschirm sehen, wo Berührungen ankommen (F11)</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Kalibrierung</translation>
    </message>
    <message>
        <source>Screen</source>
        <translation>Bildschirm</translation>
    </message>
    <message>
        <source>In force</source>
        <translation>In Kraft</translation>
    </message>
    <message>
        <source>firmware %1</source>
        <translation>Firmware %1</translation>
    </message>
    <message>
        <source>Main screen</source>
        <translation>Hauptbildschirm</translation>
    </message>
    <message>
        <source>Screen %1</source>
        <translation>Bildschirm %1</translation>
    </message>
</context>
<context>
    <name>DeviceTable</name>
    <message>
        <source>Serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>Firmware</source>
        <translation>Firmware</translation>
    </message>
    <message>
        <source>Calibrated</source>
        <translation>Kalibriert</translation>
    </message>
    <message>
        <source>Monitor</source>
        <translation>Monitor</translation>
    </message>
    <message>
        <source>Location</source>
        <translation>Anschluss</translation>
    </message>
    <message>
        <source>YES</source>
        <translation>JA</translation>
    </message>
    <message>
        <source>NO</source>
        <translation>NEIN</translation>
    </message>
</context>
<context>
    <name>FaultTexts</name>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Answers every command as it should.</source>
        <translation>Beantwortet jeden Befehl richtig.</translation>
    </message>
    <message>
        <source>Ignores a command</source>
        <translation>Überhört einen Befehl</translation>
    </message>
    <message>
        <source>Never answers one command; its reply stays the one before.</source>
        <translation>Beantwortet einen Befehl nie; es bleibt bei der vorigen Antwort.</translation>
    </message>
    <message>
        <source>Code of the command</source>
        <translation>Code des Befehls</translation>
    </message>
    <message>
        <source>Echoes wrongly</source>
        <translation>Falsches Echo</translation>
    </message>
    <message>
        <source>Answers with the code of another command.</source>
        <translation>Antwortet mit dem Code eines anderen Befehls.</translation>
    </message>
    <message>
        <source>Wrong kind of reply</source>
        <translation>Falsche Art von Antwort</translation>
    </message>
    <message>
        <source>Answers with a reply code of another class.</source>
        <translation>Antwortet mit dem Code einer anderen Klasse.</translation>
    </message>
    <message>
        <source>Answers late</source>
        <translation>Antwortet spät</translation>
    </message>
    <message>
        <source>Answers each command only when asked several times.</source>
        <translation>Beantwortet jeden Befehl erst nach mehreren Anfragen.</translation>
    </message>
    <message>
        <source>Times it must be asked</source>
        <translation>Anzahl der Anfragen</translation>
    </message>
    <message>
        <source> times</source>
        <translation> Anfragen</translation>
    </message>
    <message>
        <source>Dies</source>
        <translation>Fällt aus</translation>
    </message>
    <message>
        <source>Stops working after some packets, until it is plugged in again.</source>
        <translation>Fällt nach einigen Paketen aus, bis er neu angeschlossen wird.</translation>
    </message>
    <message>
        <source>Packets that it still answers</source>
        <translation>Pakete, die er noch beantwortet</translation>
    </message>
    <message>
        <source> packets</source>
        <translation> Pakete</translation>
    </message>
    <message>
        <source>Refuses everything</source>
        <translation>Verweigert alles</translation>
    </message>
    <message>
        <source>Refuses every request.</source>
        <translation>Verweigert jede Anfrage.</translation>
    </message>
    <message>
        <source>Garbled replies</source>
        <translation>Gestörte Antworten</translation>
    </message>
    <message>
        <source>Its replies arrive with flipped bits.</source>
        <translation>Seine Antworten kommen mit gekippten Bits an.</translation>
    </message>
    <message>
        <source>Short replies</source>
        <translation>Kurze Antworten</translation>
    </message>
    <message>
        <source>Only the first bytes of each reply arrive.</source>
        <translation>Von jeder Antwort kommen nur die ersten Bytes an.</translation>
    </message>
    <message>
        <source>Bytes that arrive</source>
        <translation>Bytes, die ankommen</translation>
    </message>
    <message>
        <source> bytes</source>
        <translation> Bytes</translation>
    </message>
    <message>
        <source>Odd version</source>
        <translation>Seltsame Version</translation>
    </message>
    <message>
        <source>Its version has a length that no rule covers.</source>
        <translation>Seine Version hat eine Länge, die keine Regel kennt.</translation>
    </message>
    <message>
        <source>Endless bar code</source>
        <translation>Endloser Strichcode</translation>
    </message>
    <message>
        <source>Its bar code fills the reply without an end mark.</source>
        <translation>Sein Strichcode füllt die Antwort ohne Endzeichen.</translation>
    </message>
</context>
<context>
    <name>HistorySheet</name>
    <message>
        <source>Earlier calibrations</source>
        <translation>Frühere Kalibrierungen</translation>
    </message>
    <message>
        <source>Where the touches landed</source>
        <translation>Wo die Berührungen ankamen</translation>
    </message>
    <message>
        <source>Nothing is kept of this touchscreen yet. From the next calibration or reset on, what it held before can be restored here.</source>
        <translation>Von diesem Touchscreen ist noch nichts aufbewahrt. Ab der nächsten Kalibrierung oder dem nächsten Zurücksetzen lässt sich hier wiederherstellen, was er vorher enthielt.</translation>
    </message>
    <message>
        <source>Some of what was kept could not be read and is not shown.</source>
        <translation>Ein Teil des Aufbewahrten war nicht lesbar und wird nicht gezeigt.</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message>
        <source>Write the selected calibration to the touchscreen and use it</source>
        <translation>Die gewählte Kalibrierung in den Touchscreen schreiben und verwenden</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Close and change nothing</source>
        <translation>Schließen, ohne etwas zu ändern</translation>
    </message>
    <message>
        <source>%1 px</source>
        <translation>%1 px</translation>
    </message>
    <message>
        <source>%1 px, %2 mm</source>
        <translation>%1 px, %2 mm</translation>
    </message>
    <message>
        <source>As found</source>
        <translation>Wie vorgefunden</translation>
    </message>
    <message>
        <source>As found, not calibrated</source>
        <translation>Wie vorgefunden, nicht kalibriert</translation>
    </message>
    <message>
        <source>As it was before</source>
        <translation>Wie es vorher war</translation>
    </message>
    <message>
        <source>As it was before, not calibrated</source>
        <translation>Wie es vorher war, nicht kalibriert</translation>
    </message>
    <message>
        <source>Calibrated</source>
        <translation>Kalibriert</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurückgesetzt</translation>
    </message>
    <message>
        <source>Restored</source>
        <translation>Wiederhergestellt</translation>
    </message>
    <message>
        <source>Restored, not calibrated</source>
        <translation>Wiederhergestellt, nicht kalibriert</translation>
    </message>
    <message>
        <source>%1 (written only in part)</source>
        <translation>%1 (nur teilweise geschrieben)</translation>
    </message>
    <message>
        <source>%1 (not written)</source>
        <translation>%1 (nicht geschrieben)</translation>
    </message>
    <message>
        <source>%1 (not known whether written)</source>
        <translation>%1 (unbekannt, ob geschrieben)</translation>
    </message>
    <message>
        <source>%1 – held now</source>
        <translation>%1 – jetzt gültig</translation>
    </message>
    <message>
        <source>Target %1: %2</source>
        <translation>Ziel %1: %2</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>Datum und Uhrzeit</translation>
    </message>
    <message>
        <source>What it was</source>
        <translation>Was es war</translation>
    </message>
    <message>
        <source>Targets</source>
        <translation>Ziele</translation>
    </message>
    <message>
        <source>Mean error</source>
        <translation>Mittlerer Fehler</translation>
    </message>
    <message>
        <source>Largest error</source>
        <translation>Größter Fehler</translation>
    </message>
    <message>
        <source>Where its touches landed is not known.</source>
        <translation>Wo die Berührungen ankamen, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Crosses are targets; dots are where their touches landed.</source>
        <translation>Kreuze sind Ziele; Punkte sind die Stellen, an denen ihre Berührungen ankamen.</translation>
    </message>
    <message>
        <source>Crosses are targets; dots are where their touches landed, drawn %1 times as far off.</source>
        <translation>Kreuze sind Ziele; Punkte sind die Stellen, an denen ihre Berührungen ankamen, %1-mal so weit entfernt gezeichnet.</translation>
    </message>
</context>
<context>
    <name>IntegerField</name>
    <message>
        <source>%1 to %2%3</source>
        <translation>%1 bis %2%3</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Touch Panel</source>
        <translation>Touch Panel</translation>
    </message>
    <message>
        <source>&amp;Touchscreens</source>
        <translation>&amp;Touchscreens</translation>
    </message>
    <message>
        <source>Touchscreens</source>
        <translation>Touchscreens</translation>
    </message>
    <message>
        <source>No touchscreen found</source>
        <translation>Kein Touchscreen gefunden</translation>
    </message>
    <message>
        <source>Plug a touchscreen in. It appears here after a few seconds.</source>
        <translation>Einen Touchscreen anschließen; nach einigen Sekunden erscheint er hier.</translation>
    </message>
    <message>
        <source>&amp;Calibrate</source>
        <translation>&amp;Kalibrieren</translation>
    </message>
    <message>
        <source>Calibrate the selected touchscreen over the whole screen</source>
        <translation>Den gewählten Touchscreen auf dem ganzen Bildschirm kalibrieren</translation>
    </message>
    <message>
        <source>Not while the settings are open.</source>
        <translation>Nicht, solange die Einstellungen offen sind.</translation>
    </message>
    <message>
        <source>Calibrate re&amp;gion</source>
        <translation>&amp;Bereich kalibrieren</translation>
    </message>
    <message>
        <source>Calibrate the selected touchscreen in a part of the screen that you draw</source>
        <translation>Den gewählten Touchscreen in einem selbst gezeichneten Teil des Bildschirms kalibrieren</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>&amp;Zurücksetzen</translation>
    </message>
    <message>
        <source>Discard the calibration of the selected touchscreen</source>
        <translation>Die Kalibrierung des gewählten Touchscreens verwerfen</translation>
    </message>
    <message>
        <source>The selected touchscreen holds no calibration.</source>
        <translation>Der gewählte Touchscreen ist nicht kalibriert.</translation>
    </message>
    <message>
        <source>Disable Touch</source>
        <translation>Touch ausschalten</translation>
    </message>
    <message>
        <source>Switch touch input off or on</source>
        <translation>Die Touch-Eingabe aus- oder einschalten</translation>
    </message>
    <message>
        <source>&amp;Mapping</source>
        <translation>Zu&amp;ordnung</translation>
    </message>
    <message>
        <source>Choose the monitor that a touchscreen belongs to</source>
        <translation>Den Monitor wählen, zu dem ein Touchscreen gehört</translation>
    </message>
    <message>
        <source>Touchscreens cannot be assigned to monitors here.</source>
        <translation>Touchscreens können hier keinem Monitor zugeordnet werden.</translation>
    </message>
    <message>
        <source>S&amp;ettings</source>
        <translation>Einste&amp;llungen</translation>
    </message>
    <message>
        <source>Change how touches act</source>
        <translation>Ändern, was Berührungen bewirken</translation>
    </message>
    <message>
        <source>A&amp;bout</source>
        <translation>&amp;Info</translation>
    </message>
    <message>
        <source>What this program is, and a report for support</source>
        <translation>Über dieses Programm, mit einem Bericht für den Kundendienst</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>Bee&amp;nden</translation>
    </message>
    <message>
        <source>End the program</source>
        <translation>Das Programm beenden</translation>
    </message>
    <message>
        <source>Tr&amp;y out</source>
        <translation>&amp;Ausprobieren</translation>
    </message>
    <message>
        <source>Surface to touch</source>
        <translation>Fläche zum Berühren</translation>
    </message>
    <message>
        <source>Touches</source>
        <translation>Berührungen</translation>
    </message>
    <message>
        <source>pixels</source>
        <translation>Pixel</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>mm</translation>
    </message>
    <message>
        <source>Mean error</source>
        <translation>Mittlerer Fehler</translation>
    </message>
    <message>
        <source>Mean error in pixels</source>
        <translation>Mittlerer Fehler in Pixeln</translation>
    </message>
    <message>
        <source>Mean error in millimetres</source>
        <translation>Mittlerer Fehler in Millimetern</translation>
    </message>
    <message>
        <source>Largest error</source>
        <translation>Größter Fehler</translation>
    </message>
    <message>
        <source>Largest error in pixels</source>
        <translation>Größter Fehler in Pixeln</translation>
    </message>
    <message>
        <source>Largest error in millimetres</source>
        <translation>Größter Fehler in Millimetern</translation>
    </message>
    <message>
        <source>Start &amp;over</source>
        <translation>&amp;Neu beginnen</translation>
    </message>
    <message>
        <source>Forget all touches and begin with the first point</source>
        <translation>Alle Berührungen vergessen und mit dem ersten Punkt beginnen</translation>
    </message>
    <message>
        <source>There are no touches yet.</source>
        <translation>Es gibt noch keine Berührungen.</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>&amp;Drucken...</translation>
    </message>
    <message>
        <source>Print the touches and the result, or save them as a PDF file</source>
        <translation>Die Berührungen und das Ergebnis drucken oder als PDF-Datei speichern</translation>
    </message>
    <message>
        <source>Driver version</source>
        <translation>Treiberversion</translation>
    </message>
    <message>
        <source>&amp;Device</source>
        <translation>&amp;Gerät</translation>
    </message>
    <message>
        <source>&amp;Settings</source>
        <translation>&amp;Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Touch settings...</source>
        <translation>&amp;Touch-Einstellungen...</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Info</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>&amp;Undo reset</source>
        <translation>Zurücksetzen r&amp;ückgängig machen</translation>
    </message>
    <message>
        <source>&amp;Write again</source>
        <translation>Erneut &amp;schreiben</translation>
    </message>
    <message>
        <source>&amp;Earlier calibrations...</source>
        <translation>&amp;Frühere Kalibrierungen...</translation>
    </message>
    <message>
        <source>Try &amp;out on the whole screen</source>
        <translation>Auf dem ganzen Bildschirm aus&amp;probieren</translation>
    </message>
    <message>
        <source>Trying out changes nothing. F11 uses the whole screen.</source>
        <translation>Das Ausprobieren ändert nichts. F11 nutzt den ganzen Bildschirm.</translation>
    </message>
    <message>
        <source>One moment</source>
        <translation>Einen Moment</translation>
    </message>
    <message>
        <source>Touchscreens may not be used</source>
        <translation>Touchscreens dürfen nicht benutzt werden</translation>
    </message>
    <message>
        <source>You are not permitted to use them. Log in at this machine itself, or ask its administrator for access.</source>
        <translation>Ihnen fehlt die Berechtigung. Melden Sie sich an diesem Rechner selbst an, oder lassen Sie sich von seiner Verwaltung den Zugang geben.</translation>
    </message>
    <message>
        <source>The touch driver service does not answer</source>
        <translation>Der Touch-Treiberdienst antwortet nicht</translation>
    </message>
    <message>
        <source>Touchscreens are listed when it runs again. Whoever looks after this machine can start it with &quot;systemctl start touchdriverd&quot;.</source>
        <translation>Touchscreens erscheinen, sobald er wieder läuft. Wer diesen Rechner betreut, kann ihn mit „systemctl start touchdriverd“ starten.</translation>
    </message>
    <message>
        <source>&amp;Screen...</source>
        <translation>&amp;Bildschirm...</translation>
    </message>
    <message>
        <source>Say which touchscreen lies on which screen</source>
        <translation>Sagen, welcher Touchscreen auf welchem Bildschirm liegt</translation>
    </message>
</context>
<context>
    <name>ScreenSheet</name>
    <message>
        <source>Screens</source>
        <translation>Bildschirme</translation>
    </message>
    <message>
        <source>Choose a screen, then touch it. Or choose a touchscreen, too, and put it there.</source>
        <translation>Einen Bildschirm wählen und ihn berühren. Oder auch einen Touchscreen wählen und ihn dorthin setzen.</translation>
    </message>
    <message>
        <source>Touch&amp;screens</source>
        <translation>Touch&amp;screens</translation>
    </message>
    <message>
        <source>Touchscreens</source>
        <translation>Touchscreens</translation>
    </message>
    <message>
        <source>Touch the chosen screen to say which touchscreen lies on it</source>
        <translation>Den gewählten Bildschirm berühren, um zu sagen, welcher Touchscreen auf ihm liegt</translation>
    </message>
    <message>
        <source>Put the chosen touchscreen on the chosen screen</source>
        <translation>Den gewählten Touchscreen auf den gewählten Bildschirm setzen</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Keep the screens as they are now</source>
        <translation>Die Bildschirme so lassen, wie sie jetzt sind</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Close and put every touchscreen back on the screen that it was on</source>
        <translation>Schließen und jeden Touchscreen auf den Bildschirm zurücksetzen, auf dem er war</translation>
    </message>
    <message>
        <source>Screen %1 is chosen.</source>
        <translation>Bildschirm %1 ist gewählt.</translation>
    </message>
    <message>
        <source>Screen %1: %2</source>
        <translation>Bildschirm %1: %2</translation>
    </message>
    <message>
        <source>%1: on screen %2</source>
        <translation>%1: auf Bildschirm %2</translation>
    </message>
    <message>
        <source>&amp;Touch the screen that shows %1</source>
        <translation>Den Bildschirm be&amp;rühren, der %1 zeigt</translation>
    </message>
    <message>
        <source>&amp;Put it on screen %1</source>
        <translation>Auf Bildschirm %1 set&amp;zen</translation>
    </message>
</context>
<context>
    <name>SettingsSheet</name>
    <message>
        <source>Touch settings</source>
        <translation>Touch-Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Touch</source>
        <translation>&amp;Touch</translation>
    </message>
    <message>
        <source>Touch mode</source>
        <translation>Touch-Modus</translation>
    </message>
    <message>
        <source>Click on to&amp;uch</source>
        <translation>Klick beim &amp;Berühren</translation>
    </message>
    <message>
        <source>The click happens the moment the finger lands.</source>
        <translation>Der Klick erfolgt, sobald der Finger aufsetzt.</translation>
    </message>
    <message>
        <source>Click on re&amp;lease</source>
        <translation>Klick beim &amp;Loslassen</translation>
    </message>
    <message>
        <source>The click happens when the finger is lifted, so it can still be moved.</source>
        <translation>Der Klick erfolgt erst, wenn der Finger abhebt; bis dahin lässt sich die Stelle noch ändern.</translation>
    </message>
    <message>
        <source>Drag and right-click by &amp;press and hold</source>
        <translation>Ziehen, Rechtsklick durch &amp;Halten</translation>
    </message>
    <message>
        <source>The finger drags like a held mouse button. Holding it still gives a right click.</source>
        <translation>Der Finger zieht wie mit gedrückter Maustaste. Hält er still, folgt ein Rechtsklick.</translation>
    </message>
    <message>
        <source>&amp;Multi-touch</source>
        <translation>&amp;Multi-Touch</translation>
    </message>
    <message>
        <source>All fingers go to programs that understand gestures.</source>
        <translation>Alle Finger gehen an Programme, die Gesten verstehen.</translation>
    </message>
    <message>
        <source>Click ran&amp;ge</source>
        <translation>Klickbere&amp;ich</translation>
    </message>
    <message>
        <source> units</source>
        <translation> Einheiten</translation>
    </message>
    <message>
        <source>Smoot&amp;hing</source>
        <translation>&amp;Glättung</translation>
    </message>
    <message>
        <source>Only optical touchscreens have this.</source>
        <translation>Nur bei optischen Touchscreens.</translation>
    </message>
    <message>
        <source>The click range holds a shaky tap in place; 1 unit is 1/1024 of the screen. Smoothing steadies a moving finger; 0 is off.</source>
        <translation>Der Klickbereich hält den Klick eines zitternden Fingers an seiner Stelle; 1 Einheit ist 1/1024 des Bildschirms. Die Glättung beruhigt einen bewegten Finger; 0 heißt aus.</translation>
    </message>
    <message>
        <source>&amp;Right click</source>
        <translation>&amp;Rechtsklick</translation>
    </message>
    <message>
        <source>Press and hold gives a right clic&amp;k</source>
        <translation>&amp;Halten löst einen Rechtsklick aus</translation>
    </message>
    <message>
        <source>Available in the touch mode &quot;Drag and right-click by press and hold&quot;.</source>
        <translation>Verfügbar im Touch-Modus „Ziehen, Rechtsklick durch Halten“.</translation>
    </message>
    <message>
        <source>&amp;Hold time</source>
        <translation>Ha&amp;ltedauer</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>Available in the touch mode &quot;Drag and right-click by press and hold&quot;, with the right click switched on.</source>
        <translation>Verfügbar im Touch-Modus „Ziehen, Rechtsklick durch Halten“, wenn der Rechtsklick eingeschaltet ist.</translation>
    </message>
    <message>
        <source>Allowed &amp;movement</source>
        <translation>Erlaubte &amp;Bewegung</translation>
    </message>
    <message>
        <source>The finger must rest for the hold time and move no further than the allowed movement; 1 unit is 1/1024 of the screen. Only in the touch mode &quot;Drag and right-click by press and hold&quot;.</source>
        <translation>Der Finger muss während der Haltedauer ruhen und darf sich nur um die erlaubte Bewegung verschieben; 1 Einheit ist 1/1024 des Bildschirms. Nur im Touch-Modus „Ziehen, Rechtsklick durch Halten“.</translation>
    </message>
    <message>
        <source>&amp;Double click</source>
        <translation>&amp;Doppelklick</translation>
    </message>
    <message>
        <source>Dou&amp;ble click</source>
        <translation>Doppelkl&amp;ick</translation>
    </message>
    <message>
        <source>Double click is always available.</source>
        <translation>Der Doppelklick ist immer verfügbar.</translation>
    </message>
    <message>
        <source>&amp;Longest time between taps</source>
        <translation>Längste &amp;Zeit bis zum zweiten Tippen</translation>
    </message>
    <message>
        <source>Lar&amp;gest distance between taps</source>
        <translation>Größter A&amp;bstand zum ersten Tippen</translation>
    </message>
    <message>
        <source>Two taps within this time and distance count as a double click, for the mouse as well; 1 unit is 1/1024 of the screen.</source>
        <translation>Wer innerhalb dieser Zeit und dieses Abstands zweimal tippt, löst einen Doppelklick aus, auch mit der Maus; 1 Einheit ist 1/1024 des Bildschirms.</translation>
    </message>
    <message>
        <source>&amp;Sensitivity</source>
        <translation>&amp;Empfindlichkeit</translation>
    </message>
    <message>
        <source>Hold a rest&amp;ing finger still</source>
        <translation>Ruhenden &amp;Finger festhalten</translation>
    </message>
    <message>
        <source>Time &amp;until a finger rests</source>
        <translation>&amp;Zeit, bis ein Finger ruht</translation>
    </message>
    <message>
        <source>Only optical touchscreens have this, while it is switched on.</source>
        <translation>Nur bei optischen Touchscreens, solange „Ruhenden Finger festhalten“ eingeschaltet ist.</translation>
    </message>
    <message>
        <source>A finger that stays this long within the allowed movement rests: it is held there until it leaves that place; 1 unit is 1/1024 of the screen. Optical touchscreens only.</source>
        <translation>Ein Finger, der sich so lange nicht weiter als erlaubt bewegt, ruht: Er wird festgehalten, bis er die Stelle verlässt; 1 Einheit ist 1/1024 des Bildschirms. Nur bei optischen Touchscreens.</translation>
    </message>
    <message>
        <source>&amp;Calibration</source>
        <translation>&amp;Kalibrierung</translation>
    </message>
    <message>
        <source>Number of targets</source>
        <translation>Anzahl der Ziele</translation>
    </message>
    <message>
        <source>&amp;4 targets, quick: for offset, size and tilt</source>
        <translation>&amp;4 Ziele, schnell: für Versatz, Größe und Neigung</translation>
    </message>
    <message>
        <source>&amp;25 targets, thorough: for distorted touchscreens too</source>
        <translation>&amp;25 Ziele, gründlich: auch für verzerrte Touchscreens</translation>
    </message>
    <message>
        <source>Kind of calibration</source>
        <translation>Art der Kalibrierung</translation>
    </message>
    <message>
        <source>The kind is chosen by the command: &quot;Calibrate&quot; or &quot;Calibrate region&quot;.</source>
        <translation>Die Art wird durch den Befehl gewählt: „Kalibrieren“ oder „Bereich kalibrieren“.</translation>
    </message>
    <message>
        <source>&amp;Whole screen</source>
        <translation>&amp;Ganzer Bildschirm</translation>
    </message>
    <message>
        <source>&amp;Part of the screen</source>
        <translation>Tei&amp;l des Bildschirms</translation>
    </message>
    <message>
        <source>The next calibration uses this number of targets. The kind is chosen by the command: &quot;Calibrate&quot; or &quot;Calibrate region&quot;.</source>
        <translation>Die nächste Kalibrierung verwendet diese Anzahl von Zielen. Die Art wird durch den Befehl gewählt: „Kalibrieren“ oder „Bereich kalibrieren“.</translation>
    </message>
    <message>
        <source>Restart d&amp;evice</source>
        <translation>Gerät &amp;neu starten</translation>
    </message>
    <message>
        <source>To restart a touchscreen, unplug it and plug it in again.</source>
        <translation>Zum Neustart den Touchscreen abziehen und wieder anschließen.</translation>
    </message>
    <message>
        <source>De&amp;fault</source>
        <translation>&amp;Standard</translation>
    </message>
    <message>
        <source>Put the default values into all controls</source>
        <translation>Überall die Standardwerte eintragen</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>&amp;Anwenden</translation>
    </message>
    <message>
        <source>Use these settings and keep the window open</source>
        <translation>Diese Einstellungen verwenden und das Fenster offen lassen</translation>
    </message>
    <message>
        <source>Nothing has been changed.</source>
        <translation>Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Use these settings for all touchscreens</source>
        <translation>Diese Einstellungen für alle Touchscreens verwenden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close without using what was changed since the last Apply</source>
        <translation>Schließen, ohne die Änderungen seit dem letzten Anwenden zu verwenden</translation>
    </message>
</context>
<context>
    <name>SimulatedTouchscreen</name>
    <message>
        <source>Infrared</source>
        <translation>Infrarot</translation>
    </message>
    <message>
        <source>Optical</source>
        <translation>Optisch</translation>
    </message>
    <message>
        <source>Configuration only</source>
        <translation>Nur Konfiguration</translation>
    </message>
</context>
<context>
    <name>SimulatorWindow</name>
    <message>
        <source>Simulated touchscreens</source>
        <translation>Simulierte Touchscreens</translation>
    </message>
    <message>
        <source>Touchscreens</source>
        <translation>Touchscreens</translation>
    </message>
    <message>
        <source>Mouse</source>
        <translation>Maus</translation>
    </message>
    <message>
        <source>The mouse is:</source>
        <translation>Die Maus ist:</translation>
    </message>
    <message>
        <source>During a calibration it is always a finger on the touchscreen that is being calibrated, and in this window it is always a mouse.</source>
        <translation>Beim Kalibrieren ist sie immer ein Finger auf dem Touchscreen, der kalibriert wird, und in diesem Fenster immer eine Maus.</translation>
    </message>
    <message>
        <source>Last touch</source>
        <translation>Letzte Berührung</translation>
    </message>
    <message>
        <source>Touchscreen:</source>
        <translation>Touchscreen:</translation>
    </message>
    <message>
        <source>Touched pixel:</source>
        <translation>Berührtes Pixel:</translation>
    </message>
    <message>
        <source>Raw point:</source>
        <translation>Rohpunkt:</translation>
    </message>
    <message>
        <source>Calibrated point:</source>
        <translation>Kalibrierter Punkt:</translation>
    </message>
    <message>
        <source>Error before calibration:</source>
        <translation>Fehler vor der Kalibrierung:</translation>
    </message>
    <message>
        <source>Error after calibration:</source>
        <translation>Fehler nach der Kalibrierung:</translation>
    </message>
</context>
<context>
    <name>StartUpWindow</name>
    <message>
        <source>Touch Panel</source>
        <translation>Touch Panel</translation>
    </message>
    <message>
        <source>Looking for touchscreens...</source>
        <translation>Touchscreens werden gesucht...</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>No touchscreen is selected.</source>
        <translation>Es ist kein Touchscreen gewählt.</translation>
    </message>
    <message>
        <source>%1 was connected.</source>
        <translation>%1 wurde angeschlossen.</translation>
    </message>
    <message>
        <source>A touchscreen was unplugged.</source>
        <translation>Ein Touchscreen wurde abgezogen.</translation>
    </message>
    <message>
        <source>Calibration of %1 started.</source>
        <translation>Die Kalibrierung von %1 hat begonnen.</translation>
    </message>
    <message>
        <source>Region calibration of %1 started.</source>
        <translation>Die Bereichskalibrierung von %1 hat begonnen.</translation>
    </message>
    <message>
        <source>The calibration of %1 ended; nothing was written to the touchscreen.</source>
        <translation>Die Kalibrierung von %1 wurde beendet; in den Touchscreen wurde nichts geschrieben.</translation>
    </message>
    <message>
        <source>Touch was enabled on %1.</source>
        <translation>Touch wurde auf %1 eingeschaltet.</translation>
    </message>
    <message>
        <source>Touch was disabled on %1.</source>
        <translation>Touch wurde auf %1 ausgeschaltet.</translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s) and saved.</source>
        <translation>
            <numerusform>Die Einstellungen wurden an %n Touchscreen gesendet und gespeichert.</numerusform>
            <numerusform>Die Einstellungen wurden an %n Touchscreens gesendet und gespeichert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Settings were closed without applying changes.</source>
        <translation>Die Einstellungen wurden ohne Änderung geschlossen.</translation>
    </message>
    <message>
        <source>Touchscreens have changed; the settings shown are those of %1.</source>
        <translation>Die Touchscreens haben gewechselt; gezeigt werden nun die Einstellungen von %1.</translation>
    </message>
    <message>
        <source>touchscreens of its kind keep no calibration</source>
        <translation>Touchscreens seiner Art speichern keine Kalibrierung</translation>
    </message>
    <message>
        <source>its configuration was not confirmed</source>
        <translation>seine Konfiguration wurde nicht bestätigt</translation>
    </message>
    <message>
        <source>the horizontal calibration was not confirmed</source>
        <translation>die waagerechte Kalibrierung wurde nicht bestätigt</translation>
    </message>
    <message>
        <source>the vertical calibration was not confirmed</source>
        <translation>die senkrechte Kalibrierung wurde nicht bestätigt</translation>
    </message>
    <message>
        <source>horizontal and vertical calibration were not confirmed</source>
        <translation>waagerechte und senkrechte Kalibrierung wurden nicht bestätigt</translation>
    </message>
    <message>
        <source>configuration and horizontal calibration were not confirmed</source>
        <translation>Konfiguration und waagerechte Kalibrierung wurden nicht bestätigt</translation>
    </message>
    <message>
        <source>configuration and vertical calibration were not confirmed</source>
        <translation>Konfiguration und senkrechte Kalibrierung wurden nicht bestätigt</translation>
    </message>
    <message>
        <source>none of its blocks was confirmed</source>
        <translation>keiner seiner Blöcke wurde bestätigt</translation>
    </message>
    <message>
        <source>it was unplugged during the write</source>
        <translation>er wurde während des Schreibens abgezogen</translation>
    </message>
    <message>
        <source>it did not go back to its work mode</source>
        <translation>er kehrte nicht in den Arbeitsmodus zurück</translation>
    </message>
    <message>
        <source>it is not plugged in any more</source>
        <translation>er ist nicht mehr angeschlossen</translation>
    </message>
    <message>
        <source>you are not permitted to use it</source>
        <translation>Sie dürfen ihn nicht benutzen</translation>
    </message>
    <message>
        <source>another program is using it</source>
        <translation>ein anderes Programm benutzt ihn</translation>
    </message>
    <message>
        <source>it does not answer</source>
        <translation>er antwortet nicht</translation>
    </message>
    <message>
        <source>the touch driver service has no such touchscreen any more</source>
        <translation>der Touch-Treiberdienst kennt diesen Touchscreen nicht mehr</translation>
    </message>
    <message>
        <source>the touch driver service refused it</source>
        <translation>der Touch-Treiberdienst hat es abgelehnt</translation>
    </message>
    <message>
        <source>the touch driver service does not answer</source>
        <translation>der Touch-Treiberdienst antwortet nicht</translation>
    </message>
    <message>
        <source>the touch driver service failed</source>
        <translation>der Touch-Treiberdienst ist gescheitert</translation>
    </message>
    <message>
        <source>you are not permitted to write the file</source>
        <translation>Sie dürfen die Datei nicht schreiben</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>der Datenträger ist voll</translation>
    </message>
    <message>
        <source>the folder of the file is missing</source>
        <translation>der Ordner der Datei fehlt</translation>
    </message>
    <message>
        <source>the file cannot be written</source>
        <translation>die Datei kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>What was to be written to %1 is written now.</source>
        <translation>Was in %1 geschrieben werden sollte, ist jetzt geschrieben.</translation>
    </message>
    <message>
        <source>%1 could not be written this time either: %2.</source>
        <translation>Auch diesmal konnte %1 nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>Only part was written to %1: %2.</source>
        <translation>In %1 wurde nur ein Teil geschrieben: %2.</translation>
    </message>
    <message>
        <source>Whether %1 is written now is not known: %2.</source>
        <translation>Ob %1 jetzt geschrieben ist, ist nicht bekannt: %2.</translation>
    </message>
    <message>
        <source>The new calibration of %1 is written and in use.</source>
        <translation>Die neue Kalibrierung von %1 ist geschrieben und in Gebrauch.</translation>
    </message>
    <message>
        <source>The new calibration of %1 is in use, but was not written: %2.</source>
        <translation>Die neue Kalibrierung von %1 ist in Gebrauch, wurde aber nicht geschrieben: %2.</translation>
    </message>
    <message>
        <source>The new calibration of %1 is in use, but was written only in part: %2.</source>
        <translation>Die neue Kalibrierung von %1 ist in Gebrauch, wurde aber nur zum Teil geschrieben: %2.</translation>
    </message>
    <message>
        <source>The new calibration of %1 is in use, but whether it was written is not known: %2.</source>
        <translation>Die neue Kalibrierung von %1 ist in Gebrauch; ob sie geschrieben wurde, ist nicht bekannt: %2.</translation>
    </message>
    <message>
        <source>The new calibration of %1 is written, but not confirmed to be in use: %2.</source>
        <translation>Die neue Kalibrierung von %1 ist geschrieben, ihr Gebrauch aber nicht bestätigt: %2.</translation>
    </message>
    <message>
        <source>The new calibration of %1 is not confirmed to be in use, and was not written: %2.</source>
        <translation>Der Gebrauch der neuen Kalibrierung von %1 ist nicht bestätigt, und sie wurde nicht geschrieben: %2.</translation>
    </message>
    <message>
        <source>The new calibration of %1 is not confirmed to be in use, and was written only in part: %2.</source>
        <translation>Der Gebrauch der neuen Kalibrierung von %1 ist nicht bestätigt, und sie wurde nur zum Teil geschrieben: %2.</translation>
    </message>
    <message>
        <source>The new calibration of %1 is not confirmed to be in use, and whether it was written is not known: %2.</source>
        <translation>Der Gebrauch der neuen Kalibrierung von %1 ist nicht bestätigt, und ob sie geschrieben wurde, ist nicht bekannt: %2.</translation>
    </message>
    <message>
        <source>%1 has no calibration any more; that is written and in force.</source>
        <translation>%1 hat keine Kalibrierung mehr; das ist geschrieben und wirksam.</translation>
    </message>
    <message>
        <source>The reset of %1 is in force, but was not written: %2.</source>
        <translation>Das Zurücksetzen von %1 ist wirksam, wurde aber nicht geschrieben: %2.</translation>
    </message>
    <message>
        <source>The reset of %1 is in force, but was written only in part: %2.</source>
        <translation>Das Zurücksetzen von %1 ist wirksam, wurde aber nur zum Teil geschrieben: %2.</translation>
    </message>
    <message>
        <source>The reset of %1 is in force, but whether it was written is not known: %2.</source>
        <translation>Das Zurücksetzen von %1 ist wirksam; ob es geschrieben wurde, ist nicht bekannt: %2.</translation>
    </message>
    <message>
        <source>The reset of %1 is written, but not confirmed to be in force: %2.</source>
        <translation>Das Zurücksetzen von %1 ist geschrieben, seine Wirkung aber nicht bestätigt: %2.</translation>
    </message>
    <message>
        <source>The reset of %1 is not confirmed to be in force, and was not written: %2.</source>
        <translation>Die Wirkung des Zurücksetzens von %1 ist nicht bestätigt, und es wurde nicht geschrieben: %2.</translation>
    </message>
    <message>
        <source>The reset of %1 is not confirmed to be in force, and was written only in part: %2.</source>
        <translation>Die Wirkung des Zurücksetzens von %1 ist nicht bestätigt, und es wurde nur zum Teil geschrieben: %2.</translation>
    </message>
    <message>
        <source>The reset of %1 is not confirmed to be in force, and whether it was written is not known: %2.</source>
        <translation>Die Wirkung des Zurücksetzens von %1 ist nicht bestätigt, und ob es geschrieben wurde, ist nicht bekannt: %2.</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is written and in use again.</source>
        <translation>Die frühere Kalibrierung von %1 ist geschrieben und wieder in Gebrauch.</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is in use, but was not written: %2.</source>
        <translation>Die frühere Kalibrierung von %1 ist in Gebrauch, wurde aber nicht geschrieben: %2.</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is in use, but was written only in part: %2.</source>
        <translation>Die frühere Kalibrierung von %1 ist in Gebrauch, wurde aber nur zum Teil geschrieben: %2.</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is in use, but whether it was written is not known: %2.</source>
        <translation>Die frühere Kalibrierung von %1 ist in Gebrauch; ob sie geschrieben wurde, ist nicht bekannt: %2.</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is written, but not confirmed to be in use: %2.</source>
        <translation>Die frühere Kalibrierung von %1 ist geschrieben, ihr Gebrauch aber nicht bestätigt: %2.</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is not confirmed to be in use, and was not written: %2.</source>
        <translation>Der Gebrauch der früheren Kalibrierung von %1 ist nicht bestätigt, und sie wurde nicht geschrieben: %2.</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is not confirmed to be in use, and was written only in part: %2.</source>
        <translation>Der Gebrauch der früheren Kalibrierung von %1 ist nicht bestätigt, und sie wurde nur zum Teil geschrieben: %2.</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is not confirmed to be in use, and whether it was written is not known: %2.</source>
        <translation>Der Gebrauch der früheren Kalibrierung von %1 ist nicht bestätigt, und ob sie geschrieben wurde, ist nicht bekannt: %2.</translation>
    </message>
    <message>
        <source>no calibration fits these touches</source>
        <translation>keine Kalibrierung passt zu diesen Berührungen</translation>
    </message>
    <message>
        <source>%1 cannot be calibrated now: %2.</source>
        <translation>%1 kann jetzt nicht kalibriert werden: %2.</translation>
    </message>
    <message>
        <source>The calibration of %1 ended; nothing was written, and what is in use is not known: %2.</source>
        <translation>Die Kalibrierung von %1 ist beendet; geschrieben wurde nichts, und was in Gebrauch ist, ist nicht bekannt: %2.</translation>
    </message>
    <message>
        <source>The new calibration of %1 stays in use; nothing was written to the touchscreen.</source>
        <translation>Die neue Kalibrierung von %1 bleibt in Gebrauch; in den Touchscreen wurde nichts geschrieben.</translation>
    </message>
    <message>
        <source>The calibration of %1 ended; nothing was written, but the driver did not confirm that it went back: %2.</source>
        <translation>Die Kalibrierung von %1 ist beendet; geschrieben wurde nichts, aber der Treiber hat die Rückkehr nicht bestätigt: %2.</translation>
    </message>
    <message>
        <source>The settings are saved for the next start, but %1 did not take them: %2.</source>
        <translation>Die Einstellungen sind für den nächsten Start gespeichert, %1 hat sie aber nicht übernommen: %2.</translation>
    </message>
    <message>
        <source>The settings are not saved, and %1 did not take them: %2.</source>
        <translation>Die Einstellungen sind nicht gespeichert, und %1 hat sie nicht übernommen: %2.</translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s) and saved, but %1 did not take them: %2.</source>
        <translation>
            <numerusform>Die Einstellungen wurden an %n Touchscreen gesendet und gespeichert, %1 hat sie aber nicht übernommen: %2.</numerusform>
            <numerusform>Die Einstellungen wurden an %n Touchscreens gesendet und gespeichert, %1 hat sie aber nicht übernommen: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s), but not saved, and %1 did not take them: %2.</source>
        <translation>
            <numerusform>Die Einstellungen wurden an %n Touchscreen gesendet, aber nicht gespeichert, und %1 hat sie nicht übernommen: %2.</numerusform>
            <numerusform>Die Einstellungen wurden an %n Touchscreens gesendet, aber nicht gespeichert, und %1 hat sie nicht übernommen: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s) and saved, but the double click was not set: %2.</source>
        <translation>
            <numerusform>Die Einstellungen wurden an %n Touchscreen gesendet und gespeichert, der Doppelklick wurde aber nicht eingestellt: %2.</numerusform>
            <numerusform>Die Einstellungen wurden an %n Touchscreens gesendet und gespeichert, der Doppelklick wurde aber nicht eingestellt: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s), but not saved, and the double click was not set: %2.</source>
        <translation>
            <numerusform>Die Einstellungen wurden an %n Touchscreen gesendet, aber nicht gespeichert, und der Doppelklick wurde nicht eingestellt: %2.</numerusform>
            <numerusform>Die Einstellungen wurden an %n Touchscreens gesendet, aber nicht gespeichert, und der Doppelklick wurde nicht eingestellt: %2.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Settings were sent to %n touchscreen(s), but could not be saved for the next start: %2.</source>
        <translation>
            <numerusform>Die Einstellungen wurden an %n Touchscreen gesendet, konnten aber nicht für den nächsten Start gespeichert werden: %2.</numerusform>
            <numerusform>Die Einstellungen wurden an %n Touchscreens gesendet, konnten aber nicht für den nächsten Start gespeichert werden: %2.</numerusform>
        </translation>
    </message>
    <message>
        <source>It is not confirmed that touch was enabled on %1: %2.</source>
        <translation>Es ist nicht bestätigt, dass Touch auf %1 eingeschaltet wurde: %2.</translation>
    </message>
    <message>
        <source>It is not confirmed that touch was disabled on %1: %2.</source>
        <translation>Es ist nicht bestätigt, dass Touch auf %1 ausgeschaltet wurde: %2.</translation>
    </message>
    <message>
        <source>Touch was not enabled on %1: %2.</source>
        <translation>Touch wurde auf %1 nicht eingeschaltet: %2.</translation>
    </message>
    <message>
        <source>Touch was not disabled on %1: %2.</source>
        <translation>Touch wurde auf %1 nicht ausgeschaltet: %2.</translation>
    </message>
    <message>
        <source>you are not permitted to change settings of touchscreens</source>
        <translation>Sie dürfen Einstellungen von Touchscreens nicht ändern</translation>
    </message>
    <message>
        <source>%1 is not connected any more; nothing was restored.</source>
        <translation>%1 ist nicht mehr angeschlossen; nichts wurde wiederhergestellt.</translation>
    </message>
    <message>
        <source>There is no reset of %1 to undo.</source>
        <translation>Bei %1 gibt es kein Zurücksetzen rückgängig zu machen.</translation>
    </message>
    <message>
        <source>The new calibration of %1 is written and in use, but not kept among the earlier ones: %2.</source>
        <translation>Die neue Kalibrierung von %1 ist geschrieben und in Gebrauch, wurde aber nicht bei den früheren aufbewahrt: %2.</translation>
    </message>
    <message>
        <source>The earlier calibration of %1 is written and in use again, but what it replaced could not be kept: %2.</source>
        <translation>Die frühere Kalibrierung von %1 ist geschrieben und wieder in Gebrauch, aber was sie ersetzt, konnte nicht aufbewahrt werden: %2.</translation>
    </message>
    <message>
        <source>%1 has no calibration any more; that is written and in force, but cannot be undone here: %2.</source>
        <translation>%1 hat keine Kalibrierung mehr; das ist geschrieben und gilt, lässt sich hier aber nicht rückgängig machen: %2.</translation>
    </message>
    <message>
        <source>there is a file of something else in its place</source>
        <translation>an ihrer Stelle liegt eine fremde Datei</translation>
    </message>
    <message>
        <source>A touchscreen was found.</source>
        <translation>Ein Touchscreen wurde gefunden.</translation>
    </message>
    <message>
        <source>%1 was connected, but its configuration could not be read.</source>
        <translation>%1 wurde angeschlossen, seine Konfiguration konnte aber nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 was connected, but not all that it holds could be read.</source>
        <translation>%1 wurde angeschlossen, konnte aber nicht vollständig gelesen werden.</translation>
    </message>
    <message>
        <source>%1 was connected; the file with the settings could not be read, so it has the defaults.</source>
        <translation>%1 wurde angeschlossen; die Einstellungsdatei konnte nicht gelesen werden, deshalb gelten die Vorgaben.</translation>
    </message>
    <message>
        <source>A touchscreen cannot be opened: %2.</source>
        <translation>Ein Touchscreen kann nicht geöffnet werden: %2.</translation>
    </message>
    <message>
        <source>The system did not make a touchscreen ready for use.</source>
        <translation>Das System hat einen Touchscreen nicht betriebsbereit gemacht.</translation>
    </message>
    <message>
        <source>A touchscreen is plugged in, but the touch driver service does not serve it.</source>
        <translation>Ein Touchscreen ist angeschlossen, aber der Touch-Treiberdienst bedient ihn nicht.</translation>
    </message>
    <message>
        <source>A touchscreen cannot be listed: %2.</source>
        <translation>Ein Touchscreen kann nicht aufgeführt werden: %2.</translation>
    </message>
    <message>
        <source>A touchscreen cannot be listed: the settings file lacks %1.</source>
        <translation>Ein Touchscreen kann nicht aufgeführt werden: In der Einstellungsdatei fehlt %1.</translation>
    </message>
    <message>
        <source>A touchscreen cannot be listed: its parameters could not be read.</source>
        <translation>Ein Touchscreen kann nicht aufgeführt werden: Seine Parameter konnten nicht gelesen werden.</translation>
    </message>
    <message>
        <source>%1 is on the chosen screen.</source>
        <translation>%1 liegt auf dem gewählten Bildschirm.</translation>
    </message>
    <message>
        <source>The screen of %1 is not changed: %2.</source>
        <translation>Der Bildschirm von %1 ist nicht geändert: %2.</translation>
    </message>
    <message>
        <source>Nothing is known of the screens of this desktop.</source>
        <translation>Über die Bildschirme dieser Arbeitsfläche ist nichts bekannt.</translation>
    </message>
</context>
<context>
    <name>TouchscreenControls</name>
    <message>
        <source>Fault:</source>
        <translation>Störung:</translation>
    </message>
</context>
<context>
    <name>TryOut</name>
    <message numerus="yes">
        <source>Touch the marked point. The result comes after %n more touch(es).</source>
        <translation>
            <numerusform>Den markierten Punkt berühren. Das Ergebnis folgt nach %n weiterer Berührung.</numerusform>
            <numerusform>Den markierten Punkt berühren. Das Ergebnis folgt nach %n weiteren Berührungen.</numerusform>
        </translation>
    </message>
    <message>
        <source>This is the result. More touches make it more certain.</source>
        <translation>Das ist das Ergebnis. Weitere Berührungen machen es verlässlicher.</translation>
    </message>
    <message>
        <source>Screen: %1 pixels; it does not tell its size in millimetres.</source>
        <translation>Bildschirm: %1 Pixel; seine Größe in Millimetern gibt er nicht an.</translation>
    </message>
    <message>
        <source>Screen: %1 pixels, %2 mm</source>
        <translation>Bildschirm: %1 Pixel, %2 mm</translation>
    </message>
    <message>
        <source>Touchscreen try-out</source>
        <translation>Touchscreen-Probe</translation>
    </message>
    <message>
        <source>Mean error: %1 pixels, %2 mm</source>
        <translation>Mittlerer Fehler: %1 Pixel, %2 mm</translation>
    </message>
    <message>
        <source>Largest error: %1 pixels, %2 mm</source>
        <translation>Größter Fehler: %1 Pixel, %2 mm</translation>
    </message>
    <message>
        <source>Touches: %1</source>
        <translation>Berührungen: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n touch(es) drifted: see the dotted paths.</source>
        <translation>
            <numerusform>%n Berührung ist verrutscht: siehe die gepunktete Bahn.</numerusform>
            <numerusform>%n Berührungen sind verrutscht: siehe die gepunkteten Bahnen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n touch(es) were slow: see the squares.</source>
        <translation>
            <numerusform>%n Berührung war lang: siehe das Quadrat.</numerusform>
            <numerusform>%n Berührungen waren lang: siehe die Quadrate.</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Escape or F11 ends the try-out. It changes nothing.</source>
        <translation>Escape oder F11 beendet das Ausprobieren. Es ändert nichts.</translation>
    </message>
</context>
<context>
    <name>WaitNotice</name>
    <message>
        <source>Opening a touchscreen...</source>
        <translation>Ein Touchscreen wird geöffnet...</translation>
    </message>
    <message>
        <source>A touchscreen is getting ready...</source>
        <translation>Ein Touchscreen wird vorbereitet...</translation>
    </message>
    <message>
        <source>Waiting for the touchscreen&apos;s driver...</source>
        <translation>Warten auf den Treiber des Touchscreens...</translation>
    </message>
    <message>
        <source>Reading the touchscreen&apos;s parameters...</source>
        <translation>Die Parameter des Touchscreens werden gelesen...</translation>
    </message>
    <message>
        <source>Writing to the touchscreen...</source>
        <translation>In den Touchscreen wird geschrieben...</translation>
    </message>
    <message>
        <source>A touchscreen was unplugged...</source>
        <translation>Ein Touchscreen wurde abgezogen...</translation>
    </message>
    <message numerus="yes">
        <source>The touchscreen cannot be opened yet: %2. Trying again (attempt %n of 50)...</source>
        <translation>
            <numerusform>Der Touchscreen kann noch nicht geöffnet werden: %2. Neuer Versuch (%n von 50)...</numerusform>
            <numerusform>Der Touchscreen kann noch nicht geöffnet werden: %2. Neuer Versuch (%n von 50)...</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>touchpanel::demo::SimulatorWindow</name>
    <message>
        <source>Mouse</source>
        <translation>Maus</translation>
    </message>
    <message>
        <source>Finger on %1</source>
        <translation>Finger auf %1</translation>
    </message>
    <message>
        <source>%L1 pixels</source>
        <translation>%L1 Pixel</translation>
    </message>
</context>
<context>
    <name>touchpanel::demo::TouchscreenControls</name>
    <message>
        <source>Fault of %1</source>
        <translation>Störung von %1</translation>
    </message>
    <message>
        <source>%1: plugged in</source>
        <translation>%1: angeschlossen</translation>
    </message>
    <message>
        <source>%1: unplugged</source>
        <translation>%1: abgezogen</translation>
    </message>
    <message>
        <source>Unplug</source>
        <translation>Abziehen</translation>
    </message>
    <message>
        <source>Plug in</source>
        <translation>Anschließen</translation>
    </message>
    <message>
        <source>Unplug %1</source>
        <translation>%1 abziehen</translation>
    </message>
    <message>
        <source>Plug in %1</source>
        <translation>%1 anschließen</translation>
    </message>
</context>
</TS>
