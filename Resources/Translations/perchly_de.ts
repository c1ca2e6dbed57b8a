<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ActivityCard</name>
    <message>
        <source>Playing</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Pausiert</translation>
    </message>
    <message>
        <source>Your current activity lives here</source>
        <translation>Hier steht die aktuelle Aktivität</translation>
    </message>
    <message>
        <source>Activity</source>
        <translation>Aktivität</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>End session</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>AppStrip</name>
    <message>
        <source>Your shelf</source>
        <translation>Leiste</translation>
    </message>
    <message>
        <source>Choose widgets and apps in Settings</source>
        <translation>Widgets und Anwendungen in den Einstellungen wählen</translation>
    </message>
    <message>
        <source>Previous icons</source>
        <translation>Vorherige Symbole</translation>
    </message>
    <message>
        <source>More icons</source>
        <translation>Weitere Symbole</translation>
    </message>
</context>
<context>
    <name>ApplicationRow</name>
    <message>
        <source>Added</source>
        <translation>Hinzugefügt</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
</context>
<context>
    <name>AppsSection</name>
    <message>
        <source>Search installed apps</source>
        <translation>Installierte Anwendungen durchsuchen</translation>
    </message>
    <message>
        <source>Browse…</source>
        <translation>Durchsuchen …</translation>
    </message>
    <message>
        <source>Installed apps</source>
        <translation>Installierte Anwendungen</translation>
    </message>
    <message>
        <source>No app matches.</source>
        <translation>Keine passende Anwendung.</translation>
    </message>
    <message>
        <source>No apps found yet.</source>
        <translation>Noch keine Anwendungen gefunden.</translation>
    </message>
    <message>
        <source>Browse lets you add an app from any other folder.</source>
        <translation>Über „Durchsuchen …“ lassen sich Anwendungen aus anderen Ordnern hinzufügen.</translation>
    </message>
</context>
<context>
    <name>AudioAppRow</name>
    <message>
        <source>Release</source>
        <translation>Freigeben</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>Aktivieren</translation>
    </message>
    <message>
        <source>Toggle mute</source>
        <translation>Ton aus- oder einschalten</translation>
    </message>
    <message>
        <source>%1 volume</source>
        <translation>Lautstärke von %1</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1&#xa0;%</translation>
    </message>
</context>
<context>
    <name>CalendarCard</name>
    <message>
        <source>Upcoming meetings</source>
        <translation>Nächste Termine</translation>
    </message>
    <message>
        <source>Meetings</source>
        <translation>Termine</translation>
    </message>
</context>
<context>
    <name>CalendarQuestion</name>
    <message>
        <source>Calendars that were found</source>
        <translation>Gefundene Kalender</translation>
    </message>
    <message>
        <source>Calendars</source>
        <translation>Kalender</translation>
    </message>
    <message>
        <source>Perchly reads your calendars</source>
        <translation>Perchly liest die Kalender</translation>
    </message>
    <message>
        <source>Let Perchly read your calendars?</source>
        <translation>Darf Perchly die Kalender lesen?</translation>
    </message>
    <message>
        <source>The meetings of the next seven days are shown in the workspace and on the calendar card. Nothing is changed, kept or sent anywhere. You can take this back with the same button.</source>
        <translation>Die Termine der nächsten sieben Tage erscheinen im Arbeitsbereich und auf der Kalenderkarte. Nichts wird geändert, gespeichert oder versendet. Über dieselbe Schaltfläche lässt sich die Erlaubnis zurücknehmen.</translation>
    </message>
    <message>
        <source>No calendar was found yet. Those that appear later would be read, too.</source>
        <translation>Es wurde noch kein Kalender gefunden. Kalender, die später dazukommen, würden ebenfalls gelesen.</translation>
    </message>
    <message>
        <source>Stop Reading</source>
        <translation>Nicht mehr lesen</translation>
    </message>
    <message>
        <source>Don’t Allow</source>
        <translation>Nicht erlauben</translation>
    </message>
    <message>
        <source>Keep Reading</source>
        <translation>Weiterhin lesen</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Erlauben</translation>
    </message>
</context>
<context>
    <name>ChordRow</name>
    <message>
        <source>Press the new keys</source>
        <translation>Neue Tasten drücken</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
</context>
<context>
    <name>ClipRow</name>
    <message>
        <source>Pinned</source>
        <translation>Angeheftet</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Anheften</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>ClipboardHistory</name>
    <message>
        <source>Copied image</source>
        <translation>Kopiertes Bild</translation>
    </message>
</context>
<context>
    <name>ClipboardSection</name>
    <message>
        <source>Enable clipboard history for this session</source>
        <translation>Verlauf der Zwischenablage für diese Sitzung aktivieren</translation>
    </message>
    <message>
        <source>Keeps up to 30 text/image copies in memory. Clears on quit. Copies marked confidential by their source app are skipped.</source>
        <translation>Behält bis zu 30 kopierte Texte und Bilder im Arbeitsspeicher und löscht sie beim Beenden. Was eine Anwendung als vertraulich kennzeichnet, wird übergangen.</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Clear history</source>
        <translation>Verlauf löschen</translation>
    </message>
    <message>
        <source>Search copied text</source>
        <translation>Kopierte Texte durchsuchen</translation>
    </message>
    <message>
        <source>Clipboard history</source>
        <translation>Verlauf der Zwischenablage</translation>
    </message>
    <message>
        <source>No copied text matches.</source>
        <translation>Kein passender Text.</translation>
    </message>
    <message>
        <source>Nothing was copied yet.</source>
        <translation>Noch wurde nichts kopiert.</translation>
    </message>
    <message>
        <source>Enable the history to keep what you copy from now on.</source>
        <translation>Nach dem Aktivieren erscheinen hier kopierte Texte und Bilder.</translation>
    </message>
</context>
<context>
    <name>Command</name>
    <message>
        <source>another instance is running, but it does not answer: process %1</source>
        <translation>eine andere Instanz läuft, antwortet aber nicht: Prozess %1</translation>
    </message>
    <message>
        <source>Perchly could not start. Run “perchly” without a command to see why.</source>
        <translation>Perchly konnte nicht starten. „perchly“ ohne Befehl zeigt den Grund.</translation>
    </message>
    <message>
        <source>“%1” is not a file, folder or web link.</source>
        <translation>„%1“ ist weder Datei noch Ordner noch Weblink.</translation>
    </message>
    <message>
        <source>Perchly is not running.</source>
        <translation>Perchly läuft nicht.</translation>
    </message>
    <message>
        <source>Perchly needs a display to start.</source>
        <translation>Zum Starten braucht Perchly ein Display.</translation>
    </message>
    <message>
        <source>“%1” takes no argument.</source>
        <translation>„%1“ erwartet kein Argument.</translation>
    </message>
    <message>
        <source>“hold” needs a file.</source>
        <translation>„hold“ erwartet eine Datei.</translation>
    </message>
    <message>
        <source>“%1” needs one name.</source>
        <translation>„%1“ erwartet genau einen Namen.</translation>
    </message>
    <message>
        <source>There is no command “%1”. “perchly --help” lists the commands.</source>
        <translation>Den Befehl „%1“ gibt es nicht. „perchly --help“ zeigt alle Befehle.</translation>
    </message>
    <message>
        <source>“%1” takes one of these: %2.</source>
        <translation>„%1“ erwartet eines dieser Wörter: %2.</translation>
    </message>
    <message>
        <source>Usage: perchly [COMMAND]

Perchly is a shelf at the edge of your screen. Without a command it starts, or shows the
shelf if it is running. A command reaches the running Perchly, or starts it first.

  toggle                open the shelf in keyboard mode, or close it
  show, hide            open or close the shelf
  search                search apps, files, clipboard and snippets
  workspace [SECTION]   open the workspace: search, files, clipboard, layouts,
                        shortcuts, meetings, launch, snippets, focus or device
  mixer                 open the volume mixer
  settings              open the settings
  capture               capture a part of the screen
  hold FILE...          hold files, folders and web links
  launch ENTRY          launch an entry of the shelf, by number or name
  layout NAME           apply a saved layout
  group NAME            open a launch group
  player ACTION         play-pause, next, previous, back or forward
  focus ACTION          start, break, pause (or resume) or stop
  dock EDGE             dock the shelf at the top, left or right
  quit                  quit Perchly

  -h, --help            show this help
  -v, --version         show the version

The exit status is 0, 1 if the command failed, or 2 if it is wrong.
</source>
        <translation>Aufruf: perchly [BEFEHL]

Perchly ist eine Leiste am Bildschirmrand. Ohne Befehl startet es oder zeigt die Leiste, falls es
schon läuft. Ein Befehl geht an das laufende Perchly oder startet es zuvor.

  toggle                Leiste im Tastaturmodus öffnen oder sie schließen
  show, hide            Leiste öffnen oder schließen
  search                Anwendungen, Dateien, Zwischenablage und Textbausteine durchsuchen
  workspace [BEREICH]   Arbeitsbereich öffnen: search, files, clipboard, layouts,
                        shortcuts, meetings, launch, snippets, focus oder device
  mixer                 Lautstärkemixer öffnen
  settings              Einstellungen öffnen
  capture               Bildschirmbereich aufnehmen
  hold DATEI...         Dateien, Ordner und Weblinks ablegen
  launch EINTRAG        Eintrag der Leiste nach Nummer oder Namen starten
  layout NAME           gespeichertes Layout anwenden
  group NAME            Startgruppe öffnen
  player AKTION         play-pause, next, previous, back oder forward
  focus AKTION          start, break, pause (oder fortsetzen) oder stop
  dock RAND             Leiste andocken: top, left oder right
  quit                  Perchly beenden

  -h, --help            diese Hilfe anzeigen
  -v, --version         Version anzeigen

Der Exit-Status ist 0, 1 nach einem Fehlschlag oder 2 bei einem falschen Befehl.
</translation>
    </message>
</context>
<context>
    <name>CompactLook</name>
    <message>
        <source>Running</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>Focus</source>
        <translation>Fokus</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Pausiert</translation>
    </message>
    <message numerus="yes">
        <source>%n held</source>
        <translation>
            <numerusform>%n abgelegt</numerusform>
            <numerusform>%n abgelegt</numerusform>
        </translation>
    </message>
    <message>
        <source>File shelf</source>
        <translation>Dateiablage</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Break</source>
        <translation>Pause</translation>
    </message>
</context>
<context>
    <name>DefaultMusicPlayer</name>
    <message>
        <source>No music application is installed.</source>
        <translation>Es ist keine Musikanwendung installiert.</translation>
    </message>
</context>
<context>
    <name>DevicePanel</name>
    <message>
        <source>Refresh battery</source>
        <translation>Akkustand aktualisieren</translation>
    </message>
    <message>
        <source>Capturing…</source>
        <translation>Aufnahme läuft …</translation>
    </message>
    <message>
        <source>Capture screen region</source>
        <translation>Bildschirmbereich aufnehmen</translation>
    </message>
    <message>
        <source>Drag to select a region. Escape cancels. Captures appear in Files for preview, copying, and dragging.</source>
        <translation>Einen Bereich mit der Maus aufziehen; Esc bricht ab. Aufnahmen erscheinen unter „Dateien“ und lassen sich dort ansehen, kopieren und herausziehen.</translation>
    </message>
</context>
<context>
    <name>EntryRow</name>
    <message>
        <source>Hide</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Einblenden</translation>
    </message>
    <message>
        <source>Favorite</source>
        <translation>Favorit</translation>
    </message>
    <message>
        <source>Move earlier</source>
        <translation>Nach vorn</translation>
    </message>
    <message>
        <source>Move later</source>
        <translation>Nach hinten</translation>
    </message>
    <message>
        <source>Remove from shelf</source>
        <translation>Aus der Leiste entfernen</translation>
    </message>
</context>
<context>
    <name>ErrorAlert</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>FileFacts</name>
    <message>
        <source>Web link</source>
        <translation>Weblink</translation>
    </message>
    <message>
        <source>No longer there</source>
        <translation>Nicht mehr vorhanden</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>Dokument</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
</context>
<context>
    <name>FilesSection</name>
    <message>
        <source>Drop files, images, or links here. Drag them into another app when you need them.</source>
        <translation>Dateien, Bilder oder Links hier ablegen und bei Bedarf in eine andere Anwendung ziehen.</translation>
    </message>
    <message>
        <source>Add files…</source>
        <translation>Dateien hinzufügen …</translation>
    </message>
    <message>
        <source>Add link</source>
        <translation>Link hinzufügen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Drop area</source>
        <translation>Ablagebereich</translation>
    </message>
    <message>
        <source>Drop here</source>
        <translation>Hier ablegen</translation>
    </message>
    <message numerus="yes">
        <source>Drag all %n</source>
        <translation>
            <numerusform>%n ziehen</numerusform>
            <numerusform>Alle %n ziehen</numerusform>
        </translation>
    </message>
    <message>
        <source>Copy all</source>
        <translation>Alle kopieren</translation>
    </message>
    <message>
        <source>Held files and links</source>
        <translation>Abgelegte Dateien und Links</translation>
    </message>
    <message>
        <source>Temporary references only. Originals are never moved or deleted; this tray clears when Perchly quits.</source>
        <translation>Hier liegen nur Verweise: Originale werden nie verschoben oder gelöscht. Beim Beenden wird die Ablage geleert.</translation>
    </message>
</context>
<context>
    <name>FocusToolsView</name>
    <message numerus="yes">
        <source>Focus: %n minutes</source>
        <translation>
            <numerusform>Fokus: %n Minute</numerusform>
            <numerusform>Fokus: %n Minuten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Break: %n minutes</source>
        <translation>
            <numerusform>Pause: %n Minute</numerusform>
            <numerusform>Pause: %n Minuten</numerusform>
        </translation>
    </message>
    <message>
        <source>Start focus</source>
        <translation>Fokus starten</translation>
    </message>
    <message>
        <source>Start break</source>
        <translation>Pause starten</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Beenden</translation>
    </message>
    <message numerus="yes">
        <source>Today: %n focus sessions</source>
        <translation>
            <numerusform>Heute: %n Fokussitzung</numerusform>
            <numerusform>Heute: %n Fokussitzungen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes</source>
        <translation>
            <numerusform>%n Minute</numerusform>
            <numerusform>%n Minuten</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Footer</name>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
</context>
<context>
    <name>GroupItems</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weiteres</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HeldRow</name>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Reveal</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Copy path / link</source>
        <translation>Pfad/Link kopieren</translation>
    </message>
    <message>
        <source>Copy image</source>
        <translation>Bild kopieren</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
</context>
<context>
    <name>HotKeys</name>
    <message>
        <source>Toggle shelf</source>
        <translation>Leiste öffnen oder schließen</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suche</translation>
    </message>
</context>
<context>
    <name>KeysGroup</name>
    <message>
        <source>Toggle shelf</source>
        <translation>Leiste öffnen oder schließen</translation>
    </message>
    <message>
        <source>Open search</source>
        <translation>Suche öffnen</translation>
    </message>
</context>
<context>
    <name>Launch</name>
    <message>
        <source>There is nothing at “%1”.</source>
        <translation>Unter „%1“ ist nichts vorhanden.</translation>
    </message>
    <message>
        <source>E-mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>No e-mail program could be started.</source>
        <translation>Es konnte kein E-Mail-Programm gestartet werden.</translation>
    </message>
    <message>
        <source>The launch failed.</source>
        <translation>Der Start ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>The application is no longer installed.</source>
        <translation>Die Anwendung ist nicht mehr installiert.</translation>
    </message>
    <message>
        <source>“%1” is not a link.</source>
        <translation>„%1“ ist kein Link.</translation>
    </message>
    <message>
        <source>No program is set up for “%1:” links.</source>
        <translation>Für „%1:“-Links ist kein Programm eingerichtet.</translation>
    </message>
    <message>
        <source>No file manager is set up.</source>
        <translation>Es ist keine Dateiverwaltung eingerichtet.</translation>
    </message>
    <message>
        <source>No program is set up for files of this kind.</source>
        <translation>Für diese Art von Dateien ist kein Programm eingerichtet.</translation>
    </message>
    <message>
        <source>Its desktop entry cannot be read.</source>
        <translation>Die Desktop-Datei dazu ist nicht lesbar.</translation>
    </message>
    <message>
        <source>It is not an application, or its program is not installed.</source>
        <translation>Das ist keine Anwendung, oder das Programm dazu ist nicht installiert.</translation>
    </message>
</context>
<context>
    <name>LaunchPanel</name>
    <message>
        <source>Workspace name</source>
        <translation>Name der Gruppe</translation>
    </message>
    <message>
        <source>Save current</source>
        <translation>Gruppe speichern</translation>
    </message>
    <message>
        <source>Save visible shelf apps together with the files and links currently in your tray.</source>
        <translation>Speichert die sichtbaren Anwendungen der Leiste zusammen mit den abgelegten Dateien und Links.</translation>
    </message>
    <message>
        <source>Launch groups</source>
        <translation>Startgruppen</translation>
    </message>
    <message>
        <source>No launch groups yet.</source>
        <translation>Noch keine Startgruppen.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Launch</source>
        <translation>Starten</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message numerus="yes">
        <source>Open %n items?</source>
        <translation>
            <numerusform>%n Objekt öffnen?</numerusform>
            <numerusform>%n Objekte öffnen?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LayoutsSection</name>
    <message>
        <source>Save the current apps, widgets, favorites, order, and pinned slots.</source>
        <translation>Speichert Anwendungen, Widgets, Favoriten, Reihenfolge und angeheftete Widgets.</translation>
    </message>
    <message>
        <source>Layout name, e.g. Work</source>
        <translation>Name des Layouts, z. B. Arbeit</translation>
    </message>
    <message>
        <source>Save current</source>
        <translation>Layout speichern</translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation>Layouts</translation>
    </message>
    <message>
        <source>No saved layouts yet.</source>
        <translation>Noch keine gespeicherten Layouts.</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>LoginItem</name>
    <message>
        <source>“%1” could not be written: %2.</source>
        <translation>„%1“ konnte nicht geschrieben werden: %2.</translation>
    </message>
    <message>
        <source>There is no program at “%1” to start.</source>
        <translation>Unter „%1“ ist kein Programm, das sich starten lässt.</translation>
    </message>
    <message>
        <source>“%1” could not be removed: %2.</source>
        <translation>„%1“ konnte nicht entfernt werden: %2.</translation>
    </message>
</context>
<context>
    <name>Media</name>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
</context>
<context>
    <name>MediaControl</name>
    <message>
        <source>Nothing is playing. Start a player and try again.</source>
        <translation>Es läuft keine Wiedergabe. Bitte einen Player starten und erneut versuchen.</translation>
    </message>
    <message>
        <source>%1 refused this command.</source>
        <translation>%1 hat diesen Befehl abgelehnt.</translation>
    </message>
    <message>
        <source>The media session changed. Wait for the current player to appear, then try again.</source>
        <translation>Die Wiedergabe hat gewechselt. Bitte warten, bis der aktuelle Player erscheint, und erneut versuchen.</translation>
    </message>
    <message>
        <source>This player does not expose a seekable timeline.</source>
        <translation>Bei diesem Player lässt sich nicht spulen.</translation>
    </message>
    <message>
        <source>%1 could not receive this playback command.</source>
        <translation>%1 konnte diesen Befehl nicht entgegennehmen.</translation>
    </message>
    <message>
        <source>%1 did not apply this media command. The tab may be closed, buffering, or unable to accept remote controls. Open the player and try again.</source>
        <translation>%1 hat diesen Befehl nicht ausgeführt. Vielleicht ist der Tab geschlossen, lädt noch oder lässt sich nicht fernsteuern. Bitte den Player öffnen und erneut versuchen.</translation>
    </message>
</context>
<context>
    <name>MeetingsPanel</name>
    <message>
        <source>Connect Calendar</source>
        <translation>Kalender verbinden</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Meetings</source>
        <translation>Termine</translation>
    </message>
    <message>
        <source>Join meeting</source>
        <translation>Teilnehmen</translation>
    </message>
</context>
<context>
    <name>MixerRoute</name>
    <message>
        <source>Cannot allocate audio buffer</source>
        <translation>Für den Tonpuffer fehlt Speicher</translation>
    </message>
</context>
<context>
    <name>MusicCard</name>
    <message>
        <source>Open Music</source>
        <translation>Musik öffnen</translation>
    </message>
</context>
<context>
    <name>MusicControls</name>
    <message>
        <source>Rewind 15 seconds</source>
        <translation>15 Sekunden zurück</translation>
    </message>
    <message>
        <source>Previous track</source>
        <translation>Vorheriger Titel</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergeben</translation>
    </message>
    <message>
        <source>Forward 15 seconds</source>
        <translation>15 Sekunden vor</translation>
    </message>
    <message>
        <source>Next track</source>
        <translation>Nächster Titel</translation>
    </message>
</context>
<context>
    <name>MyShelfSection</name>
    <message>
        <source>Show only favorites in the shelf</source>
        <translation>Nur Favoriten in der Leiste anzeigen</translation>
    </message>
    <message>
        <source>Use the eye to show or hide, the star to favorite, and arrows to rearrange.</source>
        <translation>Das Auge blendet ein oder aus, der Stern markiert Favoriten, die Pfeile ändern die Reihenfolge.</translation>
    </message>
    <message>
        <source>Shelf entries</source>
        <translation>Einträge der Leiste</translation>
    </message>
    <message>
        <source>Nothing is on your shelf. Add something under “Apps”.</source>
        <translation>Die Leiste ist leer. Unter „Anwendungen“ lässt sich etwas hinzufügen.</translation>
    </message>
</context>
<context>
    <name>NoteCard</name>
    <message>
        <source>Quick note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>A thought to keep…</source>
        <translation>Ein Gedanke für später …</translation>
    </message>
</context>
<context>
    <name>NoteEditor</name>
    <message>
        <source>Too long: a note holds at most %1 characters.</source>
        <translation>Zu lang: Eine Notiz fasst höchstens %1 Zeichen.</translation>
    </message>
</context>
<context>
    <name>NoticeRow</name>
    <message>
        <source>Dismiss</source>
        <translation>Ausblenden</translation>
    </message>
</context>
<context>
    <name>NotificationsGroup</name>
    <message>
        <source>Desktop notifications</source>
        <translation>Benachrichtigungen</translation>
    </message>
    <message>
        <source>Focus session or break over</source>
        <translation>Fokussitzung oder Pause beendet</translation>
    </message>
    <message>
        <source>Shortcut finished or failed</source>
        <translation>Kurzbefehl abgeschlossen oder fehlgeschlagen</translation>
    </message>
    <message>
        <source>Capture taken</source>
        <translation>Bildschirmaufnahme erstellt</translation>
    </message>
    <message>
        <source>Command or launch failed</source>
        <translation>Befehl oder Start fehlgeschlagen</translation>
    </message>
    <message>
        <source>Meeting starting in 5 minutes</source>
        <translation>Termin beginnt in 5 Minuten</translation>
    </message>
</context>
<context>
    <name>NullHosts</name>
    <message>
        <source>Nothing here can open “%1”.</source>
        <translation>Hier kann nichts „%1“ öffnen.</translation>
    </message>
    <message>
        <source>Nothing here starts programs at login.</source>
        <translation>Hier startet nichts Programme bei der Anmeldung.</translation>
    </message>
    <message>
        <source>There is no audio system.</source>
        <translation>Es gibt kein Tonsystem.</translation>
    </message>
    <message>
        <source>There is no folder for shortcuts here.</source>
        <translation>Hier gibt es keinen Ordner für Kurzbefehle.</translation>
    </message>
    <message>
        <source>There is no file manager here.</source>
        <translation>Hier gibt es keine Dateiverwaltung.</translation>
    </message>
    <message>
        <source>There is nothing to share with here.</source>
        <translation>Hier gibt es nichts zum Teilen.</translation>
    </message>
    <message>
        <source>There are no calendars here.</source>
        <translation>Hier gibt es keine Kalender.</translation>
    </message>
    <message>
        <source>There is no music application here.</source>
        <translation>Hier gibt es keine Musikanwendung.</translation>
    </message>
</context>
<context>
    <name>OpenPanel</name>
    <message>
        <source>Applications (*.desktop)</source>
        <translation>Anwendungen (*.desktop)</translation>
    </message>
</context>
<context>
    <name>OpeningDelayRow</name>
    <message>
        <source>Opening delay</source>
        <translation>Verzögerung beim Öffnen</translation>
    </message>
    <message>
        <source>%1 ms</source>
        <translation>%1&#xa0;ms</translation>
    </message>
</context>
<context>
    <name>OverPanelsRow</name>
    <message>
        <source>Over panels</source>
        <translation>Über Panels anzeigen</translation>
    </message>
</context>
<context>
    <name>PinPopover</name>
    <message>
        <source>Pin on left</source>
        <translation>Links anheften</translation>
    </message>
    <message>
        <source>Pin on right</source>
        <translation>Rechts anheften</translation>
    </message>
</context>
<context>
    <name>PinnedCard</name>
    <message>
        <source>Change pinned widget</source>
        <translation>Angeheftetes Widget ändern</translation>
    </message>
</context>
<context>
    <name>PopoverLayer</name>
    <message>
        <source>Pin %1</source>
        <translation>%1 anheften</translation>
    </message>
    <message>
        <source>Change pinned widget</source>
        <translation>Angeheftetes Widget ändern</translation>
    </message>
</context>
<context>
    <name>PreferenceFile</name>
    <message>
        <source>what stands there cannot be moved aside</source>
        <translation>was dort liegt, lässt sich nicht beiseiteschieben</translation>
    </message>
</context>
<context>
    <name>PreferencesSection</name>
    <message>
        <source>Midnight</source>
        <translation>Mitternacht</translation>
    </message>
    <message>
        <source>Graphite</source>
        <translation>Graphit</translation>
    </message>
    <message>
        <source>Ocean</source>
        <translation>Ozean</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Farbschema</translation>
    </message>
    <message>
        <source>Mint</source>
        <translation>Minze</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>Purple</source>
        <translation>Violett</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Accent</source>
        <translation>Akzentfarbe</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>Compact shelf content</source>
        <translation>Inhalt der Leiste kompakt anzeigen</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>Bildschirm</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Screen edge</source>
        <translation>Bildschirmrand</translation>
    </message>
    <message>
        <source>Reset position to top center</source>
        <translation>Position zurücksetzen (oben Mitte)</translation>
    </message>
    <message>
        <source>Drag the shelf header to dock on the top, left, or right edge. Your position saves automatically.</source>
        <translation>Der Kopf der Leiste lässt sich an den oberen, linken oder rechten Rand ziehen. Die Position wird automatisch gespeichert.</translation>
    </message>
    <message>
        <source>Shelf size</source>
        <translation>Größe der Leiste</translation>
    </message>
    <message>
        <source>%1%</source>
        <translation>%1&#xa0;%</translation>
    </message>
    <message>
        <source>Expand on hover</source>
        <translation>Beim Darüberfahren öffnen</translation>
    </message>
    <message>
        <source>Collapse delay</source>
        <translation>Verzögerung beim Schließen</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1&#xa0;s</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Keyboard: %1 opens search. %2 toggles the shelf. %3 launches the corresponding visible app while the shelf is open. Escape closes it.</source>
        <translation>Tastatur: %1 öffnet die Suche, %2 öffnet oder schließt die Leiste. %3 startet bei geöffneter Leiste die entsprechende sichtbare Anwendung, Esc schließt sie.</translation>
    </message>
    <message>
        <source>Install Perchly before you turn on launch at login.</source>
        <translation>Dafür muss Perchly zuerst installiert werden.</translation>
    </message>
    <message>
        <source>Keyboard: %1 launches the corresponding visible app while the shelf is open. Escape closes it.</source>
        <translation>Tastatur: %1 startet bei geöffneter Leiste die entsprechende sichtbare Anwendung, Esc schließt sie.</translation>
    </message>
</context>
<context>
    <name>ProductivityView</name>
    <message>
        <source>Search</source>
        <translation>Suche</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation>Layouts</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Kurzbefehle</translation>
    </message>
    <message>
        <source>Meetings</source>
        <translation>Termine</translation>
    </message>
    <message>
        <source>Launch</source>
        <translation>Startgruppen</translation>
    </message>
    <message>
        <source>Snippets</source>
        <translation>Textbausteine</translation>
    </message>
    <message>
        <source>Focus</source>
        <translation>Fokus</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Your workspace</source>
        <translation>Arbeitsbereich</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
</context>
<context>
    <name>QuietFocus</name>
    <message>
        <source>Room to focus</source>
        <translation>Zeit zum Konzentrieren</translation>
    </message>
    <message>
        <source>Your apps and widgets return when you leave focus mode.</source>
        <translation>Anwendungen und Widgets kehren nach der Fokuszeit zurück.</translation>
    </message>
</context>
<context>
    <name>SearchNote</name>
    <message>
        <source>Quick note</source>
        <translation>Notiz</translation>
    </message>
</context>
<context>
    <name>SearchRow</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
</context>
<context>
    <name>SearchToolsView</name>
    <message>
        <source>Search apps, notes, clipboard, and files</source>
        <translation>Anwendungen, Notiz, Zwischenablage und Dateien durchsuchen</translation>
    </message>
    <message>
        <source>Search results</source>
        <translation>Suchergebnisse</translation>
    </message>
    <message>
        <source>No results</source>
        <translation>Keine Treffer</translation>
    </message>
    <message>
        <source>Quick note</source>
        <translation>Notiz</translation>
    </message>
</context>
<context>
    <name>SectionHeader</name>
    <message>
        <source>YOUR SHELF</source>
        <translation>LEISTE</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>ShareMenu</name>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Share</source>
        <translation>Teilen</translation>
    </message>
</context>
<context>
    <name>ShelfOpener</name>
    <message>
        <source>This desktop does not let the shelf use the keyboard.</source>
        <translation>Die Desktopumgebung überlässt der Leiste die Tastatur nicht.</translation>
    </message>
    <message>
        <source>No keyboard</source>
        <translation>Keine Tastatur</translation>
    </message>
</context>
<context>
    <name>ShelfSettings</name>
    <message>
        <source>Choose your widgets and apps. Changes save automatically.</source>
        <translation>Widgets und Anwendungen auswählen. Änderungen werden automatisch gespeichert.</translation>
    </message>
    <message>
        <source>Make it your shelf</source>
        <translation>Leiste einrichten</translation>
    </message>
    <message>
        <source>Section</source>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>My shelf</source>
        <translation>Meine Leiste</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>Anwendungen</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Optionen</translation>
    </message>
</context>
<context>
    <name>ShelfView</name>
    <message>
        <source>Drag this edge to detach and reposition the shelf</source>
        <translation>An diesem Rand ziehen, um die Leiste zu lösen und zu verschieben</translation>
    </message>
    <message>
        <source>Click to open · Drag to the top, left, or right edge</source>
        <translation>Klicken zum Öffnen · An den oberen, linken oder rechten Rand ziehen</translation>
    </message>
</context>
<context>
    <name>Shortcuts</name>
    <message>
        <source>The shortcuts folder cannot be made: %1.</source>
        <translation>Der Ordner für Kurzbefehle lässt sich nicht anlegen: %1.</translation>
    </message>
</context>
<context>
    <name>ShortcutsSection</name>
    <message>
        <source>Run your shortcuts</source>
        <translation>Kurzbefehle ausführen</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>A shortcut runs with your permissions: it may do anything that you may.</source>
        <translation>Ein Kurzbefehl läuft mit den Rechten des angemeldeten Benutzers und darf alles, was dieser darf.</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Kurzbefehle</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>Added</source>
        <translation>Hinzugefügt</translation>
    </message>
    <message>
        <source>Add to shelf</source>
        <translation>Zur Leiste hinzufügen</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Ausführen</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stoppen</translation>
    </message>
    <message>
        <source>Open the folder to make your first shortcut: every executable file in it is one.</source>
        <translation>Der erste Kurzbefehl entsteht im Ordner: Jede ausführbare Datei darin ist einer.</translation>
    </message>
    <message>
        <source>Every executable file in this folder is a shortcut.</source>
        <translation>Jede ausführbare Datei in diesem Ordner ist ein Kurzbefehl.</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
</context>
<context>
    <name>ShownText</name>
    <message>
        <source>Blank text, 1 character</source>
        <translation>Leerer Text, 1 Zeichen</translation>
    </message>
    <message numerus="yes">
        <source>Blank text, %Ln characters</source>
        <translation>
            <numerusform>Leerer Text, %Ln Zeichen</numerusform>
            <numerusform>Leerer Text, %Ln Zeichen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SnippetsPanel</name>
    <message>
        <source>New snippet</source>
        <translation>Neuer Textbaustein</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Anheften</translation>
    </message>
    <message>
        <source>Keep pinned snippets after quitting</source>
        <translation>Angeheftete Textbausteine nach dem Beenden behalten</translation>
    </message>
    <message>
        <source>Only pinned text is saved when enabled. Clipboard history stays in memory.</source>
        <translation>Gespeichert werden nur angeheftete Texte. Der Verlauf der Zwischenablage bleibt im Arbeitsspeicher.</translation>
    </message>
    <message>
        <source>Pinned snippets</source>
        <translation>Angeheftete Textbausteine</translation>
    </message>
    <message>
        <source>No snippets yet.</source>
        <translation>Noch keine Textbausteine.</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
</context>
<context>
    <name>StepperRow</name>
    <message>
        <source>Less</source>
        <translation>Weniger</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
</context>
<context>
    <name>StripEntry</name>
    <message>
        <source>Open %1</source>
        <translation>%1 öffnen</translation>
    </message>
</context>
<context>
    <name>TextEntry</name>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
</context>
<context>
    <name>TimerCard</name>
    <message>
        <source>Stop focus</source>
        <translation>Fokus beenden</translation>
    </message>
    <message>
        <source>Start focus</source>
        <translation>Fokus starten</translation>
    </message>
</context>
<context>
    <name>Toolbar</name>
    <message>
        <source>Search</source>
        <translation>Suche</translation>
    </message>
    <message>
        <source>Capture</source>
        <translation>Aufnahme</translation>
    </message>
    <message>
        <source>Mixer</source>
        <translation>Mixer</translation>
    </message>
    <message>
        <source>Workspace</source>
        <translation>Arbeitsbereich</translation>
    </message>
    <message>
        <source>End focus</source>
        <translation>Fokus beenden</translation>
    </message>
    <message>
        <source>Focus</source>
        <translation>Fokus</translation>
    </message>
    <message numerus="yes">
        <source>%n held</source>
        <translation>
            <numerusform>%n abgelegt</numerusform>
            <numerusform>%n abgelegt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>VolumeMixerView</name>
    <message>
        <source>App volume</source>
        <translation>Lautstärke der Anwendungen</translation>
    </message>
    <message>
        <source>Release all</source>
        <translation>Alle freigeben</translation>
    </message>
    <message>
        <source>Start audio in an app, then enable its slider. Audio stays on this computer; nothing is recorded or uploaded.</source>
        <translation>In einer Anwendung die Wiedergabe starten und dann ihren Regler aktivieren. Der Ton bleibt auf diesem Rechner; nichts wird aufgezeichnet oder hochgeladen.</translation>
    </message>
    <message>
        <source>Release restores the app’s original audio route.</source>
        <translation>„Freigeben“ stellt den ursprünglichen Tonweg der Anwendung wieder her.</translation>
    </message>
    <message>
        <source>Needs PipeWire, which is not running.</source>
        <translation>Benötigt PipeWire, das gerade nicht läuft.</translation>
    </message>
    <message>
        <source>No apps playing audio. Start music or a video, then refresh.</source>
        <translation>Keine Anwendung gibt Ton wieder. Musik oder ein Video starten und dann aktualisieren.</translation>
    </message>
    <message>
        <source>Apps playing audio</source>
        <translation>Anwendungen mit Tonwiedergabe</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Browser audio may appear as helper processes.</source>
        <translation>Der Ton von Browsern erscheint mitunter unter Hilfsprozessen.</translation>
    </message>
</context>
<context>
    <name>Widget</name>
    <message>
        <source>Clock</source>
        <translation>Uhr</translation>
    </message>
    <message>
        <source>Focus timer</source>
        <translation>Fokus-Timer</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>Musik</translation>
    </message>
    <message>
        <source>Quick note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Calendar</source>
        <translation>Kalender</translation>
    </message>
</context>
<context>
    <name>WidgetTile</name>
    <message>
        <source>Pin %1</source>
        <translation>%1 anheften</translation>
    </message>
    <message>
        <source>Pinned</source>
        <translation>Angeheftet</translation>
    </message>
</context>
<context>
    <name>perchly::Announcements</name>
    <message>
        <source>Start break</source>
        <translation>Pause starten</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Überspringen</translation>
    </message>
    <message>
        <source>Start focus</source>
        <translation>Fokus starten</translation>
    </message>
    <message>
        <source>Break complete</source>
        <translation>Pause beendet</translation>
    </message>
    <message>
        <source>Focus complete</source>
        <translation>Fokus abgeschlossen</translation>
    </message>
    <message>
        <source>Ready for another session?</source>
        <translation>Bereit für eine weitere Sitzung?</translation>
    </message>
    <message>
        <source>Time for a break.</source>
        <translation>Zeit für eine Pause.</translation>
    </message>
    <message>
        <source>Shortcut finished</source>
        <translation>Kurzbefehl abgeschlossen</translation>
    </message>
    <message>
        <source>Shortcut failed</source>
        <translation>Kurzbefehl fehlgeschlagen</translation>
    </message>
    <message>
        <source>Capture taken</source>
        <translation>Bildschirmaufnahme erstellt</translation>
    </message>
    <message>
        <source>It is held in Files.</source>
        <translation>Sie liegt unter „Dateien“.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Join</source>
        <translation>Teilnehmen</translation>
    </message>
    <message>
        <source>Meeting</source>
        <translation>Termin</translation>
    </message>
    <message>
        <source>Starts at %1.</source>
        <comment>time of day</comment>
        <translation>Beginnt um %1.</translation>
    </message>
    <message>
        <source>%1 ended with exit status %2.</source>
        <translation>%1 endete mit dem Exit-Status %2.</translation>
    </message>
</context>
<context>
    <name>perchly::AppDelegate</name>
    <message>
        <source>Show shelf</source>
        <translation>Leiste anzeigen</translation>
    </message>
    <message>
        <source>Volume Mixer…</source>
        <translation>Lautstärkemixer …</translation>
    </message>
    <message>
        <source>Search…</source>
        <translation>Suche …</translation>
    </message>
    <message>
        <source>Workspace…</source>
        <translation>Arbeitsbereich …</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>Quit Perchly</source>
        <translation>Perchly beenden</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>Ausblenden</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Perchly Workspace</source>
        <translation>Perchly – Arbeitsbereich</translation>
    </message>
    <message>
        <source>Perchly Settings</source>
        <translation>Perchly – Einstellungen</translation>
    </message>
    <message>
        <source>Perchly Volume Mixer</source>
        <translation>Perchly – Lautstärkemixer</translation>
    </message>
    <message>
        <source>Could not open %1. %2</source>
        <translation>„%1“ konnte nicht geöffnet werden. %2</translation>
    </message>
    <message>
        <source>Perchly is running without a display.</source>
        <translation>Perchly läuft ohne Bildschirm.</translation>
    </message>
    <message>
        <source>There is no layout “%1”.</source>
        <translation>Es gibt kein Layout „%1“.</translation>
    </message>
    <message>
        <source>There is no launch group “%1”.</source>
        <translation>Es gibt keine Startgruppe „%1“.</translation>
    </message>
    <message>
        <source>The shelf has no entry “%1”.</source>
        <translation>Die Leiste hat keinen Eintrag „%1“.</translation>
    </message>
    <message>
        <source>Launch failed</source>
        <translation>Start fehlgeschlagen</translation>
    </message>
    <message>
        <source>No focus session or break is running.</source>
        <translation>Es läuft weder eine Fokussitzung noch eine Pause.</translation>
    </message>
    <message>
        <source>Nothing is playing. Start a player and try again.</source>
        <translation>Es läuft keine Wiedergabe. Bitte einen Player starten und erneut versuchen.</translation>
    </message>
    <message>
        <source>“%1” is a widget, which cannot be launched.</source>
        <translation>„%1“ ist ein Widget und lässt sich nicht starten.</translation>
    </message>
</context>
<context>
    <name>perchly::AudioAppList</name>
    <message>
        <source>process %1</source>
        <translation>Prozess %1</translation>
    </message>
</context>
<context>
    <name>perchly::Battery</name>
    <message>
        <source>Battery unavailable</source>
        <translation>Akku nicht verfügbar</translation>
    </message>
    <message>
        <source>No internal battery</source>
        <translation>Kein interner Akku</translation>
    </message>
    <message>
        <source>%1% · %2</source>
        <translation>%1&#xa0;% · %2</translation>
    </message>
    <message>
        <source>Charging</source>
        <translation>Wird geladen</translation>
    </message>
    <message>
        <source>Plugged in</source>
        <translation>Netzbetrieb</translation>
    </message>
    <message>
        <source>On battery</source>
        <translation>Akkubetrieb</translation>
    </message>
    <message>
        <source>Checking battery…</source>
        <translation>Akku wird geprüft …</translation>
    </message>
</context>
<context>
    <name>perchly::Capture</name>
    <message>
        <source>The screen could not be captured.</source>
        <translation>Der Bildschirm konnte nicht aufgenommen werden.</translation>
    </message>
</context>
<context>
    <name>perchly::ClipboardHistory</name>
    <message>
        <source>Copied. Paste into your app with %1.</source>
        <translation>Kopiert. Mit %1 in eine Anwendung einfügen.</translation>
    </message>
</context>
<context>
    <name>perchly::CompanionCalendarStore</name>
    <message>
        <source>Your answer could not be kept: %1.</source>
        <translation>Die Antwort konnte nicht gespeichert werden: %1.</translation>
    </message>
    <message>
        <source>There is no display to ask you on.</source>
        <translation>Für die Rückfrage fehlt ein Bildschirm.</translation>
    </message>
    <message>
        <source>The calendar reader is not installed.</source>
        <translation>Das Programm zum Lesen der Kalender ist nicht installiert.</translation>
    </message>
    <message>
        <source>The calendars could not be looked for.</source>
        <translation>Die Kalender konnten nicht gesucht werden.</translation>
    </message>
</context>
<context>
    <name>perchly::HeldFiles</name>
    <message>
        <source>Add files</source>
        <translation>Dateien hinzufügen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
</context>
<context>
    <name>perchly::LaunchGroups</name>
    <message>
        <source>Could not open %1</source>
        <translation>„%1“ konnte nicht geöffnet werden</translation>
    </message>
</context>
<context>
    <name>perchly::MediaTracking</name>
    <message>
        <source>Music is open</source>
        <translation>Musik ist geöffnet</translation>
    </message>
</context>
<context>
    <name>perchly::MediaView</name>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Wiedergeben</translation>
    </message>
</context>
<context>
    <name>perchly::Meetings</name>
    <message>
        <source>Connect Calendar to see upcoming meetings.</source>
        <translation>„Kalender verbinden“ zeigt die nächsten Termine.</translation>
    </message>
    <message>
        <source>In progress</source>
        <translation>Läuft gerade</translation>
    </message>
    <message numerus="yes">
        <source>Starts in %n min</source>
        <translation>
            <numerusform>Beginnt in %n min</numerusform>
            <numerusform>Beginnt in %n min</numerusform>
        </translation>
    </message>
    <message>
        <source>Calendar access is off. Press “Connect Calendar” to turn it on.</source>
        <translation>Der Kalenderzugriff ist ausgeschaltet. „Kalender verbinden“ schaltet ihn ein.</translation>
    </message>
    <message>
        <source>Your calendars could not all be read.</source>
        <translation>Nicht alle Kalender konnten gelesen werden.</translation>
    </message>
    <message>
        <source>No meetings in the next seven days.</source>
        <translation>Keine Termine in den nächsten sieben Tagen.</translation>
    </message>
    <message>
        <source>Meeting</source>
        <translation>Termin</translation>
    </message>
    <message>
        <source>Starts today, %1</source>
        <translation>Beginnt heute, %1</translation>
    </message>
    <message>
        <source>Starts tomorrow, %1</source>
        <translation>Beginnt morgen, %1</translation>
    </message>
    <message>
        <source>Starts %1, %2</source>
        <comment>weekday, time</comment>
        <translation>Beginnt %1, %2</translation>
    </message>
</context>
<context>
    <name>perchly::PdfView</name>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
</context>
<context>
    <name>perchly::PipeWireRoute</name>
    <message>
        <source>Audio access failed. %1</source>
        <translation>Der Zugriff auf den Ton ist fehlgeschlagen. %1</translation>
    </message>
    <message>
        <source>This app’s audio format is not supported by the mixer yet.</source>
        <translation>Das Tonformat dieser Anwendung wird vom Mixer noch nicht unterstützt.</translation>
    </message>
    <message>
        <source>Cannot create private audio route (%1).</source>
        <translation>Der eigene Tonweg lässt sich nicht anlegen (%1).</translation>
    </message>
    <message>
        <source>The audio output cannot be opened: %1.</source>
        <translation>Die Tonausgabe lässt sich nicht öffnen: %1.</translation>
    </message>
    <message>
        <source>Cannot start app audio (%1).</source>
        <translation>Der Ton der Anwendung lässt sich nicht starten (%1).</translation>
    </message>
    <message>
        <source>PipeWire does not answer.</source>
        <translation>PipeWire antwortet nicht.</translation>
    </message>
    <message>
        <source>PipeWire no longer lists this app.</source>
        <translation>PipeWire führt diese Anwendung nicht mehr auf.</translation>
    </message>
    <message>
        <source>This app does not let PipeWire move its sound.</source>
        <translation>Diese Anwendung lässt PipeWire ihren Ton nicht umleiten.</translation>
    </message>
</context>
<context>
    <name>perchly::PreviewWindow</name>
    <message>
        <source>Perchly Preview</source>
        <translation>Perchly – Vorschau</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
</context>
<context>
    <name>perchly::Productivity</name>
    <message>
        <source>Could not save your changes yet. %1.</source>
        <translation>Die Änderungen konnten noch nicht gespeichert werden. %1.</translation>
    </message>
    <message>
        <source>There is no room to keep that. Snippets, layouts, launch groups and apps may take 512 KiB each.</source>
        <translation>Dafür ist kein Platz: Textbausteine, Layouts, Startgruppen und Anwendungen dürfen je 512 KiB belegen.</translation>
    </message>
    <message>
        <source>Could not open %1. %2</source>
        <translation>„%1“ konnte nicht geöffnet werden. %2</translation>
    </message>
    <message>
        <source>Could not reveal %1. %2</source>
        <translation>Der Ordner von „%1“ konnte nicht geöffnet werden. %2</translation>
    </message>
    <message>
        <source>Could not share %1. %2</source>
        <translation>„%1“ konnte nicht geteilt werden. %2</translation>
    </message>
    <message>
        <source>Changes not saved</source>
        <translation>Änderungen nicht gespeichert</translation>
    </message>
    <message>
        <source>Command failed</source>
        <translation>Befehl fehlgeschlagen</translation>
    </message>
    <message>
        <source>Launch failed</source>
        <translation>Start fehlgeschlagen</translation>
    </message>
</context>
<context>
    <name>perchly::RegionOverlay</name>
    <message>
        <source>Drag to select  ·  Esc cancels</source>
        <translation>Bereich aufziehen  ·  Esc bricht ab</translation>
    </message>
    <message>
        <source>Perchly capture</source>
        <translation>Perchly – Aufnahme</translation>
    </message>
</context>
<context>
    <name>perchly::SearchResults</name>
    <message>
        <source>Apps</source>
        <translation>Anwendungen</translation>
    </message>
    <message>
        <source>Quick note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>Clipboard</source>
        <translation>Zwischenablage</translation>
    </message>
    <message>
        <source>Pinned snippets</source>
        <translation>Angeheftete Textbausteine</translation>
    </message>
    <message>
        <source>Held files and links</source>
        <translation>Abgelegte Dateien und Links</translation>
    </message>
</context>
<context>
    <name>perchly::ShelfHotKey</name>
    <message>
        <source>Hold Ctrl, Alt or Super as well.</source>
        <translation>Zusätzlich Strg, Alt oder Super halten.</translation>
    </message>
    <message>
        <source>%1 already opens search.</source>
        <translation>%1 öffnet bereits die Suche.</translation>
    </message>
    <message>
        <source>%1 already toggles the shelf.</source>
        <translation>%1 öffnet oder schließt bereits die Leiste.</translation>
    </message>
    <message>
        <source>Could not register %1 for search.</source>
        <translation>%1 konnte nicht für die Suche belegt werden.</translation>
    </message>
    <message>
        <source>Could not register %1. Another app may use that shortcut.</source>
        <translation>%1 konnte nicht belegt werden. Vielleicht nutzt eine andere Anwendung diese Tastenkombination.</translation>
    </message>
    <message>
        <source>Perchly cannot register keys here. Bind one to “%1” in the settings of your desktop.</source>
        <translation>Perchly kann hier keine Tasten belegen. In den Einstellungen der Desktopumgebung lässt sich eine mit „%1“ belegen.</translation>
    </message>
</context>
<context>
    <name>perchly::ShelfLibrary</name>
    <message>
        <source>Choose applications</source>
        <translation>Anwendungen auswählen</translation>
    </message>
    <message>
        <source>Add to shelf</source>
        <translation>Zur Leiste hinzufügen</translation>
    </message>
</context>
<context>
    <name>perchly::ShelfModel</name>
    <message>
        <source>Focus session</source>
        <translation>Fokussitzung</translation>
    </message>
    <message>
        <source>Break</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Ready when you are</source>
        <translation>Alles bereit</translation>
    </message>
    <message>
        <source>Break complete</source>
        <translation>Pause beendet</translation>
    </message>
    <message>
        <source>Focus complete</source>
        <translation>Fokus abgeschlossen</translation>
    </message>
    <message>
        <source>Media controls unavailable</source>
        <translation>Mediensteuerung nicht verfügbar</translation>
    </message>
</context>
<context>
    <name>perchly::Shortcuts</name>
    <message>
        <source>Stopped: %1</source>
        <translation>Gestoppt: %1</translation>
    </message>
    <message>
        <source>Could not load your shortcuts. Their folder is %1</source>
        <translation>Die Kurzbefehle konnten nicht geladen werden. Ihr Ordner ist %1</translation>
    </message>
    <message>
        <source>Finished: %1</source>
        <translation>Abgeschlossen: %1</translation>
    </message>
    <message>
        <source>Shortcut failed: %1. Run it in a terminal to see why.</source>
        <translation>Kurzbefehl fehlgeschlagen: %1. Ein Start im Terminal zeigt den Grund.</translation>
    </message>
    <message>
        <source>Could not open %1. %2</source>
        <translation>„%1“ konnte nicht geöffnet werden. %2</translation>
    </message>
</context>
<context>
    <name>perchly::VolumeMixer</name>
    <message>
        <source>Output device changed. App audio was restored; enable mixing again for this output.</source>
        <translation>Das Ausgabegerät hat gewechselt. Der Ton der Anwendungen wurde wiederhergestellt; für diese Ausgabe bitte erneut aktivieren.</translation>
    </message>
    <message>
        <source>An audio route stopped. Original app output has been restored.</source>
        <translation>Ein Tonweg wurde unterbrochen. Die ursprüngliche Ausgabe der Anwendung ist wiederhergestellt.</translation>
    </message>
    <message>
        <source>Audio process %1</source>
        <translation>Tonprozess %1</translation>
    </message>
    <message>
        <source>Per-app audio needs PipeWire, which is not running.</source>
        <translation>Für die Lautstärke einzelner Anwendungen wird PipeWire benötigt, das gerade nicht läuft.</translation>
    </message>
</context>
</TS>
