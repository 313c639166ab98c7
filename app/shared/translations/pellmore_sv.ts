<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="sv_SE" sourcelanguage="en">
<context>
    <name>FramePicture</name>
    <message>
        <source>Other</source>
        <translation>Annat</translation>
    </message>
    <message>
        <source>File icon</source>
        <translation>Filikon</translation>
    </message>
    <message>
        <source>Other file icon</source>
        <translation>Annan filikon</translation>
    </message>
    <message>
        <source>Front cover</source>
        <translation>Framsida</translation>
    </message>
    <message>
        <source>Back cover</source>
        <translation>Baksida</translation>
    </message>
    <message>
        <source>Leaflet page</source>
        <translation>Häftessida</translation>
    </message>
    <message>
        <source>Media</source>
        <translation>Medium</translation>
    </message>
    <message>
        <source>Lead artist</source>
        <translation>Huvudartist</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Conductor</source>
        <translation>Dirigent</translation>
    </message>
    <message>
        <source>Band or orchestra</source>
        <translation>Band eller orkester</translation>
    </message>
    <message>
        <source>Composer</source>
        <translation>Kompositör</translation>
    </message>
    <message>
        <source>Lyricist</source>
        <translation>Textförfattare</translation>
    </message>
    <message>
        <source>Recording location</source>
        <translation>Inspelningsplats</translation>
    </message>
    <message>
        <source>During recording</source>
        <translation>Under inspelningen</translation>
    </message>
    <message>
        <source>During performance</source>
        <translation>Under framträdandet</translation>
    </message>
    <message>
        <source>Screen capture</source>
        <translation>Skärmbild</translation>
    </message>
    <message>
        <source>A bright coloured fish</source>
        <translation>En färgglad fisk</translation>
    </message>
    <message>
        <source>Illustration</source>
        <translation>Illustration</translation>
    </message>
    <message>
        <source>Band logotype</source>
        <translation>Bandets logotyp</translation>
    </message>
    <message>
        <source>Publisher logotype</source>
        <translation>Utgivarens logotyp</translation>
    </message>
    <message>
        <source>%1, %2 x %3, %4</source>
        <translation>%1, %2 x %3, %4</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>The help is in the file &quot;%1&quot;.</source>
        <translation>Hjälpen finns i filen &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>No program opens text files here. The help is in the file &quot;%1&quot;.</source>
        <translation>Inget program öppnar textfiler här. Hjälpen finns i filen &quot;%1&quot;.</translation>
    </message>
</context>
<context>
    <name>ListedFrames</name>
    <message>
        <source>Audio encryption</source>
        <translation>Ljudkryptering</translation>
    </message>
    <message>
        <source>Attached picture</source>
        <translation>Bifogad bild</translation>
    </message>
    <message>
        <source>Audio seek point index</source>
        <translation>Index för sökpunkter</translation>
    </message>
    <message>
        <source>Commercial offer</source>
        <translation>Kommersiellt erbjudande</translation>
    </message>
    <message>
        <source>Encryption method</source>
        <translation>Krypteringsmetod</translation>
    </message>
    <message>
        <source>Equalisation</source>
        <translation>Equalizer</translation>
    </message>
    <message>
        <source>Event timing codes</source>
        <translation>Tidskoder för händelser</translation>
    </message>
    <message>
        <source>Attached file</source>
        <translation>Bifogad fil</translation>
    </message>
    <message>
        <source>Group identification</source>
        <translation>Gruppidentifiering</translation>
    </message>
    <message>
        <source>Linked information</source>
        <translation>Länkad information</translation>
    </message>
    <message>
        <source>Music CD identifier</source>
        <translation>Musik-cd:ns identitet</translation>
    </message>
    <message>
        <source>Location lookup table</source>
        <translation>Tabell över platser</translation>
    </message>
    <message>
        <source>Ownership</source>
        <translation>Ägande</translation>
    </message>
    <message>
        <source>Private data of a program</source>
        <translation>Ett programs egna data</translation>
    </message>
    <message>
        <source>Play counter</source>
        <translation>Spelräknare</translation>
    </message>
    <message>
        <source>Popularity (rating)</source>
        <translation>Popularitet (betyg)</translation>
    </message>
    <message>
        <source>Position synchronisation</source>
        <translation>Positionssynkronisering</translation>
    </message>
    <message>
        <source>Recommended buffer size</source>
        <translation>Rekommenderad buffertstorlek</translation>
    </message>
    <message>
        <source>Relative volume adjustment</source>
        <translation>Relativ volymjustering</translation>
    </message>
    <message>
        <source>Reverb</source>
        <translation>Efterklang</translation>
    </message>
    <message>
        <source>Place of the next tag</source>
        <translation>Nästa taggs plats</translation>
    </message>
    <message>
        <source>Signature</source>
        <translation>Signatur</translation>
    </message>
    <message>
        <source>Synchronised lyrics</source>
        <translation>Synkroniserad sångtext</translation>
    </message>
    <message>
        <source>Synchronised tempo codes</source>
        <translation>Synkroniserade tempokoder</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>Beats per minute</source>
        <translation>Slag per minut</translation>
    </message>
    <message>
        <source>Composer</source>
        <translation>Kompositör</translation>
    </message>
    <message>
        <source>Genre</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Copyright message</source>
        <translation>Copyrightmeddelande</translation>
    </message>
    <message>
        <source>Encoding time</source>
        <translation>Kodningstid</translation>
    </message>
    <message>
        <source>Playlist delay</source>
        <translation>Fördröjning i spellista</translation>
    </message>
    <message>
        <source>Original release time</source>
        <translation>Ursprunglig utgivningstid</translation>
    </message>
    <message>
        <source>Recording time</source>
        <translation>Inspelningstid</translation>
    </message>
    <message>
        <source>Release time</source>
        <translation>Utgivningstid</translation>
    </message>
    <message>
        <source>Tagging time</source>
        <translation>Taggningstid</translation>
    </message>
    <message>
        <source>Encoded by</source>
        <translation>Kodad av</translation>
    </message>
    <message>
        <source>Lyricist</source>
        <translation>Textförfattare</translation>
    </message>
    <message>
        <source>File type</source>
        <translation>Filtyp</translation>
    </message>
    <message>
        <source>Involved people</source>
        <translation>Medverkande</translation>
    </message>
    <message>
        <source>Content group</source>
        <translation>Innehållsgrupp</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Subtitle</source>
        <translation>Undertitel</translation>
    </message>
    <message>
        <source>Initial key</source>
        <translation>Inledande tonart</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Språk</translation>
    </message>
    <message>
        <source>Length in milliseconds</source>
        <translation>Längd i millisekunder</translation>
    </message>
    <message>
        <source>Musicians</source>
        <translation>Musiker</translation>
    </message>
    <message>
        <source>Media type</source>
        <translation>Medietyp</translation>
    </message>
    <message>
        <source>Mood</source>
        <translation>Stämning</translation>
    </message>
    <message>
        <source>Original album</source>
        <translation>Ursprungligt album</translation>
    </message>
    <message>
        <source>Original file name</source>
        <translation>Ursprungligt filnamn</translation>
    </message>
    <message>
        <source>Original lyricist</source>
        <translation>Ursprunglig textförfattare</translation>
    </message>
    <message>
        <source>Owner of the file</source>
        <translation>Filens ägare</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Band or orchestra</source>
        <translation>Band eller orkester</translation>
    </message>
    <message>
        <source>Conductor</source>
        <translation>Dirigent</translation>
    </message>
    <message>
        <source>Remixed by</source>
        <translation>Remixad av</translation>
    </message>
    <message>
        <source>Part of a set</source>
        <translation>Del av en samling</translation>
    </message>
    <message>
        <source>Production notice</source>
        <translation>Produktionsuppgift</translation>
    </message>
    <message>
        <source>Publisher</source>
        <translation>Utgivare</translation>
    </message>
    <message>
        <source>Track</source>
        <translation>Spår</translation>
    </message>
    <message>
        <source>Internet radio station</source>
        <translation>Webbradiostation</translation>
    </message>
    <message>
        <source>Owner of the radio station</source>
        <translation>Radiostationens ägare</translation>
    </message>
    <message>
        <source>Sort order of the album</source>
        <translation>Albumets sorteringsnamn</translation>
    </message>
    <message>
        <source>Sort order of the artist</source>
        <translation>Artistens sorteringsnamn</translation>
    </message>
    <message>
        <source>Sort order of the title</source>
        <translation>Titelns sorteringsnamn</translation>
    </message>
    <message>
        <source>International recording code</source>
        <translation>Internationell inspelningskod</translation>
    </message>
    <message>
        <source>Encoding software and settings</source>
        <translation>Kodningsprogram och inställningar</translation>
    </message>
    <message>
        <source>Set subtitle</source>
        <translation>Samlingens undertitel</translation>
    </message>
    <message>
        <source>Text of the user&apos;s own</source>
        <translation>Användarens egen text</translation>
    </message>
    <message>
        <source>Unique file identifier</source>
        <translation>Unik filidentitet</translation>
    </message>
    <message>
        <source>Terms of use</source>
        <translation>Användningsvillkor</translation>
    </message>
    <message>
        <source>Lyrics</source>
        <translation>Sångtext</translation>
    </message>
    <message>
        <source>Web page: commercial information</source>
        <translation>Webbsida: kommersiell information</translation>
    </message>
    <message>
        <source>Web page: copyright</source>
        <translation>Webbsida: copyright</translation>
    </message>
    <message>
        <source>Web page of the file</source>
        <translation>Filens webbsida</translation>
    </message>
    <message>
        <source>Web page of the artist</source>
        <translation>Artistens webbsida</translation>
    </message>
    <message>
        <source>Web page of the source</source>
        <translation>Källans webbsida</translation>
    </message>
    <message>
        <source>Web page of the radio station</source>
        <translation>Radiostationens webbsida</translation>
    </message>
    <message>
        <source>Web page: payment</source>
        <translation>Webbsida: betalning</translation>
    </message>
    <message>
        <source>Web page of the publisher</source>
        <translation>Utgivarens webbsida</translation>
    </message>
    <message>
        <source>Web page of the user&apos;s own</source>
        <translation>Användarens egen webbsida</translation>
    </message>
</context>
<context>
    <name>Player</name>
    <message>
        <source>Nothing is played: Qt Multimedia is missing (%1).</source>
        <translation>Inget spelas: Qt Multimedia saknas (%1).</translation>
    </message>
    <message>
        <source>Nothing is played: please install GStreamer&apos;s base and good plug-ins (missing: %1).</source>
        <translation>Inget spelas: installera GStreamers insticksmoduler base och good (saknas: %1).</translation>
    </message>
    <message>
        <source>Nothing is played: there is no sound device.</source>
        <translation>Inget spelas: det finns ingen ljudenhet.</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; cannot be played: %2</source>
        <translation>Filen &quot;%1&quot; kan inte spelas: %2</translation>
    </message>
</context>
<context>
    <name>QtPrompts</name>
    <message>
        <source>… %1 more lines</source>
        <translation>… %1 rader till</translation>
    </message>
</context>
<context>
    <name>SaveSettings</name>
    <message>
        <source>The settings could not be saved. They hold until the program ends.</source>
        <translation>Inställningarna kunde inte sparas. De gäller tills programmet avslutas.</translation>
    </message>
    <message>
        <source>The settings could not be read. The defaults hold until the program ends, and the file is left as it is.</source>
        <translation>Inställningarna kunde inte läsas. Standardvärdena gäller tills programmet avslutas, och filen lämnas som den är.</translation>
    </message>
</context>
<context>
    <name>Texts</name>
    <message>
        <source>Adding files: %1 found</source>
        <translation>Lägger till filer: %1 hittade</translation>
    </message>
    <message>
        <source>Computing new names</source>
        <translation>Räknar ut nya namn</translation>
    </message>
    <message>
        <source>Copied, but the original could not be removed: %1</source>
        <translation>Kopierad, men originalet kunde inte tas bort: %1</translation>
    </message>
    <message>
        <source>This could not be sorted:</source>
        <translation>Detta kunde inte sorteras:</translation>
    </message>
    <message>
        <source>%1 could not be sorted:</source>
        <translation>%1 kunde inte sorteras:</translation>
    </message>
    <message>
        <source>and %1 more.</source>
        <translation>och %1 till.</translation>
    </message>
    <message>
        <source>%1 done, %2 skipped, %3 failed</source>
        <translation>%1 klara, %2 överhoppade, %3 misslyckade</translation>
    </message>
    <message>
        <source>The file has changed since it was shown. It was not saved.</source>
        <translation>Filen har ändrats sedan den visades. Den sparades inte.</translation>
    </message>
    <message>
        <source>Another program is writing to this file. Nothing was written; save it again when that program is done.</source>
        <translation>Ett annat program skriver till den här filen. Inget skrevs; spara den igen när det programmet är klart.</translation>
    </message>
    <message>
        <source>Another program changed, moved or removed this file meanwhile. Nothing was written; look at the file and save it again.</source>
        <translation>Ett annat program har ändrat, flyttat eller tagit bort den här filen under tiden. Inget skrevs; titta på filen och spara den igen.</translation>
    </message>
    <message>
        <source>The work was stopped before this file was written. It is as it was.</source>
        <translation>Arbetet avbröts innan den här filen skrevs. Den är som den var.</translation>
    </message>
    <message>
        <source>The tags of this file could not be saved:</source>
        <translation>Taggarna i den här filen kunde inte sparas:</translation>
    </message>
    <message>
        <source>The tags of %1 files could not be saved:</source>
        <translation>Taggarna i %1 filer kunde inte sparas:</translation>
    </message>
    <message>
        <source>%1 renamed</source>
        <translation>%1 omdöpta</translation>
    </message>
    <message>
        <source>%1 kept</source>
        <translation>%1 oförändrade</translation>
    </message>
    <message>
        <source>%1 missing</source>
        <translation>%1 saknas</translation>
    </message>
    <message>
        <source>%1 failed</source>
        <translation>%1 misslyckade</translation>
    </message>
    <message>
        <source>Nothing renamed</source>
        <translation>Inget döptes om</translation>
    </message>
    <message>
        <source>The target directory &quot;%1&quot; could not be created: %2.</source>
        <translation>Målmappen &quot;%1&quot; kunde inte skapas: %2.</translation>
    </message>
    <message>
        <source>The target directory &quot;%1&quot; is not a folder.</source>
        <translation>Målmappen &quot;%1&quot; är ingen mapp.</translation>
    </message>
    <message>
        <source>There is a file of its new name</source>
        <translation>Det finns en fil med det nya namnet</translation>
    </message>
    <message>
        <source>The file is missing</source>
        <translation>Filen saknas</translation>
    </message>
    <message>
        <source>Its name has no artist</source>
        <translation>Namnet innehåller ingen artist</translation>
    </message>
    <message>
        <source>Done: &quot;%1&quot;</source>
        <translation>Klar: &quot;%1&quot;</translation>
    </message>
    <message>
        <source>There was nothing to change</source>
        <translation>Det fanns inget att ändra</translation>
    </message>
    <message>
        <source>Done: &quot;%1&quot; to &quot;%2&quot;</source>
        <translation>Klar: &quot;%1&quot; till &quot;%2&quot;</translation>
    </message>
    <message>
        <source>Skipped: &quot;%1&quot;: %2</source>
        <translation>Överhoppad: &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>Failed: &quot;%1&quot;: %2</source>
        <translation>Misslyckad: &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>Copying file:</source>
        <translation>Kopierar fil:</translation>
    </message>
    <message>
        <source>Moving file:</source>
        <translation>Flyttar fil:</translation>
    </message>
    <message>
        <source>Renaming file:</source>
        <translation>Döper om fil:</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; has %2 megabytes.
Read it as an album text all the same?</source>
        <translation>Filen &quot;%1&quot; har %2 megabyte.
Läsa den som albumtext ändå?</translation>
    </message>
    <message>
        <source>Sorting</source>
        <translation>Sorterar</translation>
    </message>
    <message>
        <source>there is no file to rename.</source>
        <translation>det finns ingen fil att döpa om.</translation>
    </message>
    <message>
        <source>there is no extension to give.</source>
        <translation>det finns inget filtillägg att ge.</translation>
    </message>
    <message>
        <source>  pellmore                              opens the window
  pellmore +list PATH...                opens the window with these files, folders,
                                        sorting lists and playlists in its list
  pellmore +rename=&quot;PATTERN&quot; FILE...    gives the files new names, without a window
  pellmore +ext=&quot;EXTENSION&quot; FILE...     gives the files another extension, without
                                        a window; +ext=&quot;&quot; asks for it
  pellmore --help                       prints this
  pellmore --version                    prints the version
</source>
        <translation>  pellmore                              öppnar fönstret
  pellmore +list SÖKVÄG...              öppnar fönstret med dessa filer, mappar,
                                        sorteringslistor och spellistor i listan
  pellmore +rename=&quot;MÖNSTER&quot; FIL...     ger filerna nya namn, utan fönster
  pellmore +ext=&quot;FILTILLÄGG&quot; FIL...     ger filerna ett annat filtillägg, utan
                                        fönster; +ext=&quot;&quot; frågar efter det
  pellmore --help                       skriver ut detta
  pellmore --version                    skriver ut versionen
</translation>
    </message>
    <message>
        <source>a command line begins with one of its switches.</source>
        <translation>en kommandorad börjar med en av programmets växlar.</translation>
    </message>
    <message>
        <source>Pellmore puts a personal MP3 collection in order.</source>
        <translation>Pellmore ordnar en personlig MP3-samling.</translation>
    </message>
    <message>
        <source>A pattern is a name with placeholders: %artist, %title, %album, %track, %year,
%genre and %comment. They are filled from a file&apos;s ID3 tags or from its old name,
and the name is cleaned, both as the settings say that the window keeps.

  pellmore +rename=&quot;%track - %artist - %title.mp3&quot; *.mp3

Exit status without a window: 0 every file has its new name, 1 some could not be
renamed (they stay as they are), 2 there was nothing that could be done.
</source>
        <translation>Ett mönster är ett namn med platshållare: %artist, %title, %album, %track, %year,
%genre och %comment. De fylls i från filens ID3-taggar eller från dess gamla namn,
och namnet städas, båda enligt de inställningar som fönstret sparar.

  pellmore +rename=&quot;%track - %artist - %title.mp3&quot; *.mp3

Slutstatus utan fönster: 0 varje fil har sitt nya namn, 1 några kunde inte döpas
om (de är som de var), 2 det fanns inget som kunde göras.
</translation>
    </message>
    <message>
        <source>the window needs a graphical display (X11 or Wayland), and there is none
that can be reached: DISPLAY or WAYLAND_DISPLAY names it.
Without a display files can be renamed in batch mode:</source>
        <translation>fönstret behöver en grafisk skärm (X11 eller Wayland), och det finns ingen
som kan nås: DISPLAY eller WAYLAND_DISPLAY anger den.
Utan skärm kan filer döpas om i satsläge:</translation>
    </message>
    <message>
        <source>Here you define the inpattern that matches the text and the outpattern that will be used for the new filenames. </source>
        <translation>Här anger du inmönstret som passar texten och utmönstret som används för de nya filnamnen. </translation>
    </message>
    <message>
        <source>%track = TrackNr    %artist = Artist    %title = Title    %album = Album </source>
        <translation>%track = spårnr    %artist = artist    %title = titel    %album = album </translation>
    </message>
    <message>
        <source>The characters between are the separators. </source>
        <translation>Tecknen emellan är avgränsarna. </translation>
    </message>
    <message>
        <source>&quot;Ignore first&quot; needs a number of 1 or more.</source>
        <translation>&quot;Hoppa över första&quot; behöver ett tal som är 1 eller mer.</translation>
    </message>
    <message>
        <source>&quot;Ignore last&quot; needs a number of 0 or more.</source>
        <translation>&quot;Hoppa över sista&quot; behöver ett tal som är 0 eller mer.</translation>
    </message>
    <message>
        <source>Invalid procedure call or argument</source>
        <translation>Ogiltigt anrop eller argument</translation>
    </message>
    <message>
        <source>Overflow</source>
        <translation>Talet är för stort</translation>
    </message>
    <message>
        <source>Out of memory</source>
        <translation>Slut på minne</translation>
    </message>
    <message>
        <source>Type mismatch</source>
        <translation>Fel datatyp</translation>
    </message>
    <message>
        <source>Bad file name or number</source>
        <translation>Felaktigt filnamn eller filnummer</translation>
    </message>
    <message>
        <source>File not found</source>
        <translation>Filen hittades inte</translation>
    </message>
    <message>
        <source>File already open</source>
        <translation>Filen är redan öppen</translation>
    </message>
    <message>
        <source>Device I/O error</source>
        <translation>In- eller utmatningsfel på enheten</translation>
    </message>
    <message>
        <source>File already exists</source>
        <translation>Filen finns redan</translation>
    </message>
    <message>
        <source>Disk full</source>
        <translation>Disken är full</translation>
    </message>
    <message>
        <source>Input past end of file</source>
        <translation>Läsning förbi filens slut</translation>
    </message>
    <message>
        <source>Bad record number</source>
        <translation>Felaktigt postnummer</translation>
    </message>
    <message>
        <source>Too many files</source>
        <translation>För många filer</translation>
    </message>
    <message>
        <source>Device unavailable</source>
        <translation>Enheten är inte tillgänglig</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Åtkomst nekad</translation>
    </message>
    <message>
        <source>Disk not ready</source>
        <translation>Disken är inte klar</translation>
    </message>
    <message>
        <source>Can&apos;t rename with different drive</source>
        <translation>Kan inte döpa om till en annan enhet</translation>
    </message>
    <message>
        <source>Path/File access error</source>
        <translation>Fel vid åtkomst till sökväg eller fil</translation>
    </message>
    <message>
        <source>Path not found</source>
        <translation>Sökvägen hittades inte</translation>
    </message>
    <message>
        <source>These were not searched:</source>
        <translation>Dessa söktes inte igenom:</translation>
    </message>
    <message>
        <source>the folder is too deep: its path is too long to be opened</source>
        <translation>mappen ligger för djupt: sökvägen är för lång för att öppnas</translation>
    </message>
    <message>
        <source>These were not written into &quot;%1&quot;:</source>
        <translation>Dessa skrevs inte i &quot;%1&quot;:</translation>
    </message>
    <message>
        <source>These were not taken from &quot;%1&quot;:</source>
        <translation>Dessa togs inte från &quot;%1&quot;:</translation>
    </message>
    <message>
        <source>a list file cannot hold a name with a line break</source>
        <translation>en listfil kan inte innehålla ett namn med radbrytning</translation>
    </message>
    <message>
        <source>no name is left</source>
        <translation>inget namn blir kvar</translation>
    </message>
    <message>
        <source>the settings in &quot;%1&quot; could not be read; the defaults hold.</source>
        <translation>inställningarna i &quot;%1&quot; kunde inte läsas; standardvärdena gäller.</translation>
    </message>
    <message>
        <source>The file has more than a megabyte, so it is damaged. Move it away or delete it.</source>
        <translation>Filen är större än en megabyte och alltså skadad. Flytta undan den eller ta bort den.</translation>
    </message>
    <message>
        <source>A line of this list is longer than a file name can be. It was passed over.</source>
        <translation>En rad i listan är längre än ett filnamn kan vara. Den hoppades över.</translation>
    </message>
    <message>
        <source>stopped before %1 of %2 files.</source>
        <translation>stoppat före %1 av %2 filer.</translation>
    </message>
    <message>
        <source>left behind by a run that was ended, and removed: %1</source>
        <translation>borttaget, kvarlämnat av en körning som avbröts: %1</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>och %1 till</translation>
    </message>
    <message>
        <source>%1 lines of this list are longer than a file name can be. They were passed over.</source>
        <translation>%1 rader i listan är längre än ett filnamn kan vara. De hoppades över.</translation>
    </message>
    <message>
        <source>1 file</source>
        <translation>1 fil</translation>
    </message>
    <message>
        <source>%1 files</source>
        <translation>%1 filer</translation>
    </message>
    <message>
        <source>Stopped. %1</source>
        <translation>Stoppat. %1</translation>
    </message>
    <message>
        <source>Stopped. %1 added.</source>
        <translation>Stoppat. %1 lades till.</translation>
    </message>
    <message>
        <source>%1 added.</source>
        <translation>%1 lades till.</translation>
    </message>
    <message>
        <source>%1 saved to %2</source>
        <translation>%1 sparades i %2</translation>
    </message>
    <message>
        <source>%1 taken out of the list.</source>
        <translation>%1 togs ur listan.</translation>
    </message>
    <message>
        <source>%1 deleted, %2 could not be deleted.</source>
        <translation>%1 togs bort, %2 kunde inte tas bort.</translation>
    </message>
    <message>
        <source>%1 taken out of the list because they are missing.</source>
        <translation>%1 togs ur listan eftersom de saknas.</translation>
    </message>
    <message>
        <source>Stopped. The selection is as it was.</source>
        <translation>Stoppat. Markeringen är som den var.</translation>
    </message>
    <message>
        <source>%1 selected.</source>
        <translation>%1 markerades.</translation>
    </message>
</context>
<context>
    <name>mdlPLM::ListCommands</name>
    <message>
        <source>Drop MP3 files, folders or playlists here</source>
        <translation>Släpp MP3-filer, mappar eller spellistor här</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>Lägg till filer</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>Lägg till mapp</translation>
    </message>
    <message>
        <source>Load List</source>
        <translation>Öppna lista</translation>
    </message>
    <message>
        <source>Save List</source>
        <translation>Spara lista</translation>
    </message>
    <message>
        <source>No file is selected.</source>
        <translation>Ingen fil är markerad.</translation>
    </message>
    <message>
        <source>Deleting files</source>
        <translation>Tar bort filer</translation>
    </message>
    <message>
        <source>Looking for missing files</source>
        <translation>Söker filer som saknas</translation>
    </message>
    <message>
        <source>Looking for tags</source>
        <translation>Söker taggar</translation>
    </message>
</context>
<context>
    <name>mdlPLM::PairColumn</name>
    <message>
        <source>no new name beside it</source>
        <translation>inget nytt namn bredvid</translation>
    </message>
    <message>
        <source>no file beside it</source>
        <translation>ingen fil bredvid</translation>
    </message>
    <message>
        <source>Doubleclick to edit the filename!</source>
        <translation>Dubbelklicka för att redigera filnamnet!</translation>
    </message>
</context>
<context>
    <name>mdlPLM::PairLists</name>
    <message>
        <source>The MP3 files to rename.
Files and folders can be dropped here.</source>
        <translation>MP3-filerna att döpa om.
Filer och mappar kan släppas här.</translation>
    </message>
    <message>
        <source>The names that a scan makes, each beside its file.</source>
        <translation>Namnen som en avsökning gör, vart och ett bredvid sin fil.</translation>
    </message>
    <message>
        <source>Add MP3 files</source>
        <translation>Lägg till MP3-filer</translation>
    </message>
</context>
<context>
    <name>mdlPLM::PlayerCommands</name>
    <message>
        <source>Nothing is heard: there is no sound device.</source>
        <translation>Inget hörs: det finns ingen ljudenhet.</translation>
    </message>
</context>
<context>
    <name>mdlPLM::Preview</name>
    <message>
        <source>Stopped. The other new names are not computed.</source>
        <translation>Stoppat. De andra nya namnen är inte uträknade.</translation>
    </message>
</context>
<context>
    <name>mdlPLM::SortCommands</name>
    <message>
        <source>Not used while files are renamed.</source>
        <translation>Används inte när filer döps om.</translation>
    </message>
    <message>
        <source>&amp;Target folder:</source>
        <translation>&amp;Målmapp:</translation>
    </message>
    <message>
        <source>File loca&amp;tion:</source>
        <translation>Filens &amp;mapp:</translation>
    </message>
    <message>
        <source>No file is selected, so there is nothing to sort.</source>
        <translation>Ingen fil är markerad, så det finns inget att sortera.</translation>
    </message>
    <message>
        <source>0 files</source>
        <translation>0 files</translation>
    </message>
</context>
<context>
    <name>mdlPLM::StatusLine</name>
    <message>
        <source>Details...</source>
        <translation>Detaljer...</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Förlopp</translation>
    </message>
    <message>
        <source>%v of %m</source>
        <translation>%v av %m</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stoppa</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Detaljer</translation>
    </message>
</context>
<context>
    <name>mdlPLM::TagCommands</name>
    <message>
        <source>No file is selected.</source>
        <translation>Ingen fil är markerad.</translation>
    </message>
    <message>
        <source>Cleaning tags</source>
        <translation>Städar taggar</translation>
    </message>
    <message>
        <source>Saving tags</source>
        <translation>Sparar taggar</translation>
    </message>
    <message>
        <source>There was nothing to save.</source>
        <translation>Det fanns inget att spara.</translation>
    </message>
    <message>
        <source>The tags were saved.</source>
        <translation>Taggarna sparades.</translation>
    </message>
</context>
<context>
    <name>mdlPLM::frmEdit</name>
    <message>
        <source>Edit Fixed Filename</source>
        <translation>Redigera filnamnet</translation>
    </message>
    <message>
        <source>Fixed &amp;filename:</source>
        <translation>&amp;Filnamn:</translation>
    </message>
    <message>
        <source>Replace in the filename</source>
        <translation>Ersätt i filnamnet</translation>
    </message>
    <message>
        <source>&amp;Replace:</source>
        <translation>&amp;Ersätt:</translation>
    </message>
    <message>
        <source>Text that is selected in the filename comes here by itself.</source>
        <translation>Text som markeras i filnamnet hamnar här av sig själv.</translation>
    </message>
    <message>
        <source>&amp;With:</source>
        <translation>&amp;Med:</translation>
    </message>
    <message>
        <source>Replace &amp;All</source>
        <translation>Ersätt &amp;alla</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Avbryt</translation>
    </message>
</context>
<context>
    <name>mdlPLM::frmMoreID3v2</name>
    <message>
        <source>More ID3v2 frames</source>
        <translation>Fler ID3v2-ramar</translation>
    </message>
    <message>
        <source>ID3v2 &amp;frames in file:</source>
        <translation>ID3v2-&amp;ramar i filen:</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Ta bort</translation>
    </message>
    <message>
        <source>Remove All ID3v2 tags in the list from the file.</source>
        <translation>Ta bort alla ID3v2-taggar i listan från filen.</translation>
    </message>
    <message>
        <source>Remove A&amp;ll</source>
        <translation>Ta bort a&amp;lla</translation>
    </message>
    <message>
        <source>Frame co&amp;ntent:</source>
        <translation>Ramens &amp;innehåll:</translation>
    </message>
    <message>
        <source>A&amp;dd frame:</source>
        <translation>Lägg till ra&amp;m:</translation>
    </message>
    <message>
        <source>The four characters of the new frame; its content is what stands above.</source>
        <translation>Den nya ramens fyra tecken; innehållet är det som står ovanför.</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>Läg&amp;g till</translation>
    </message>
    <message>
        <source>&amp;Save As File...</source>
        <translation>&amp;Spara som fil...</translation>
    </message>
    <message>
        <source>Picture in the frame</source>
        <translation>Bilden i ramen</translation>
    </message>
    <message>
        <source>Save the picture itself as a file.</source>
        <translation>Spara själva bilden som en fil.</translation>
    </message>
    <message>
        <source>Save &amp;Picture...</source>
        <translation>Spara &amp;bild...</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>St&amp;äng</translation>
    </message>
    <message>
        <source>The beginning of %L1 characters is shown.</source>
        <translation>Början av %L1 tecken visas.</translation>
    </message>
    <message>
        <source>The frame has no text that can be shown.</source>
        <translation>Ramen har ingen text som kan visas.</translation>
    </message>
    <message>
        <source>Saved.</source>
        <translation>Sparat.</translation>
    </message>
    <message>
        <source>The picture cannot be shown.</source>
        <translation>Bilden kan inte visas.</translation>
    </message>
    <message numerus="yes">
        <source>%1
The first of %n pictures</source>
        <translation>
            <numerusform>%1
Den första av %n bild</numerusform>
            <numerusform>%1
Den första av %n bilder</numerusform>
        </translation>
    </message>
    <message>
        <source>An identifier has four characters.</source>
        <translation>En identitet har fyra tecken.</translation>
    </message>
    <message>
        <source>The new frame has no content yet.</source>
        <translation>Den nya ramen har inget innehåll än.</translation>
    </message>
    <message>
        <source>Added. The file is changed when its tags are saved.</source>
        <translation>Tillagd. Filen ändras när dess taggar sparas.</translation>
    </message>
    <message>
        <source>Removed. The file is changed when its tags are saved.</source>
        <translation>Borttagen. Filen ändras när dess taggar sparas.</translation>
    </message>
    <message>
        <source>All removed. The file is changed when its tags are saved.</source>
        <translation>Alla borttagna. Filen ändras när dess taggar sparas.</translation>
    </message>
</context>
<context>
    <name>mdlPLM::frmNameFromFile</name>
    <message>
        <source>Get MP3 info from File/Text</source>
        <translation>Hämta MP3-data från fil/text</translation>
    </message>
    <message>
        <source>Album text</source>
        <translation>Albumtext</translation>
    </message>
    <message>
        <source>&amp;Open Sourcefile...</source>
        <translation>&amp;Öppna källfil...</translation>
    </message>
    <message>
        <source>Select a (text-) file that contains the album information.</source>
        <translation>Välj en (text-)fil som innehåller albumets uppgifter.</translation>
    </message>
    <message>
        <source>No line of this file ends in CR LF: a scan takes it all as one line.</source>
        <translation>Ingen rad i filen slutar med CR LF: en avsökning tar allt som en rad.</translation>
    </message>
    <message>
        <source>Ta&amp;ke line ends as CR LF</source>
        <translation>Läs radslut som &amp;CR LF</translation>
    </message>
    <message>
        <source>The file itself is not changed.</source>
        <translation>Själva filen ändras inte.</translation>
    </message>
    <message>
        <source>Open, paste or drop the text of an album here.</source>
        <translation>Öppna, klistra in eller släpp texten om ett album här.</translation>
    </message>
    <message>
        <source>The album text. Select the lines of the tracks in it, or nothing for all of it.</source>
        <translation>Albumtexten. Markera raderna med spåren i den, eller inget för hela texten.</translation>
    </message>
    <message>
        <source>PreScan Result:</source>
        <translation>Förhandsresultat:</translation>
    </message>
    <message>
        <source>&amp;Artist:</source>
        <translation>A&amp;rtist:</translation>
    </message>
    <message>
        <source>Artist</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>If checked all files will be tagged and named with this artist.</source>
        <translation>Om rutan är markerad taggas och namnges alla filer med denna artist.</translation>
    </message>
    <message>
        <source>Use for all.</source>
        <translation>Till alla.</translation>
    </message>
    <message>
        <source>Use this artist for all files</source>
        <translation>Använd denna artist för alla filer</translation>
    </message>
    <message>
        <source>Al&amp;bum:</source>
        <translation>Al&amp;bum:</translation>
    </message>
    <message>
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message>
        <source>If checked all files will be tagged and named with this album.</source>
        <translation>Om rutan är markerad taggas och namnges alla filer med detta album.</translation>
    </message>
    <message>
        <source>Use this album for all files</source>
        <translation>Använd detta album för alla filer</translation>
    </message>
    <message>
        <source>&amp;Year:</source>
        <translation>&amp;År:</translation>
    </message>
    <message>
        <source>If checked all files will be tagged and named with this year.</source>
        <translation>Om rutan är markerad taggas och namnges alla filer med detta år.</translation>
    </message>
    <message>
        <source>Use this year for all files</source>
        <translation>Använd detta år för alla filer</translation>
    </message>
    <message>
        <source>Gen&amp;re:</source>
        <translation>G&amp;enre:</translation>
    </message>
    <message>
        <source>If checked all files will be tagged and named with this genre.</source>
        <translation>Om rutan är markerad taggas och namnges alla filer med denna genre.</translation>
    </message>
    <message>
        <source>Use this genre for all files</source>
        <translation>Använd denna genre för alla filer</translation>
    </message>
    <message>
        <source>Release &amp;date:</source>
        <translation>Utgivnings&amp;datum:</translation>
    </message>
    <message>
        <source>If checked all files will be tagged with this release date as a comment.</source>
        <translation>Om rutan är markerad taggas alla filer med detta utgivningsdatum som kommentar.</translation>
    </message>
    <message>
        <source>stored as comment.</source>
        <translation>till kommentar.</translation>
    </message>
    <message>
        <source>Store this release date as the comment of all files</source>
        <translation>Spara detta utgivningsdatum som kommentar i alla filer</translation>
    </message>
    <message>
        <source>Patterns</source>
        <translation>Mönster</translation>
    </message>
    <message>
        <source>&amp;In-pattern:</source>
        <translation>&amp;Inmönster:</translation>
    </message>
    <message>
        <source>This pattern should match the selected textlines so that PLM can get information from them.</source>
        <translation>Mönstret ska passa de markerade textraderna så att PLM kan hämta uppgifter från dem.</translation>
    </message>
    <message>
        <source>%track - %artist - %title.mp3</source>
        <translation>%track - %artist - %title.mp3</translation>
    </message>
    <message>
        <source>O&amp;ut-pattern:</source>
        <translation>&amp;Utmönster:</translation>
    </message>
    <message>
        <source>This pattern will be used for the new filenames.</source>
        <translation>Mönstret används för de nya filnamnen.</translation>
    </message>
    <message>
        <source>I&amp;gnore first</source>
        <translation>Hoppa över &amp;första</translation>
    </message>
    <message>
        <source>Characters ignored at the start of every line</source>
        <translation>Tecken som hoppas över i början av varje rad</translation>
    </message>
    <message>
        <source>characters on every line.</source>
        <translation>tecken på varje rad.</translation>
    </message>
    <message>
        <source>Ignore &amp;last</source>
        <translation>Hoppa över si&amp;sta</translation>
    </message>
    <message>
        <source>Characters ignored at the end of every line</source>
        <translation>Tecken som hoppas över i slutet av varje rad</translation>
    </message>
    <message>
        <source>&amp;Scan now!</source>
        <translation>Sök a&amp;v nu!</translation>
    </message>
    <message>
        <source>During this scan PLM generates a list of suggested new filenames from the selected textlines.</source>
        <translation>Vid avsökningen gör PLM en lista med förslag till nya filnamn av de markerade textraderna.</translation>
    </message>
    <message>
        <source>Old (&amp;Current) Filenames:</source>
        <translation>&amp;Gamla (nuvarande) filnamn:</translation>
    </message>
    <message>
        <source>0 files</source>
        <translation>0 files</translation>
    </message>
    <message>
        <source>Ne&amp;w Fixed Filenames:</source>
        <translation>&amp;Nya filnamn:</translation>
    </message>
    <message>
        <source>Doubleclick to edit the filename!</source>
        <translation>Dubbelklicka för att redigera filnamnet!</translation>
    </message>
    <message>
        <source>Add &amp;MP3 files...</source>
        <translation>Lägg till &amp;MP3-filer...</translation>
    </message>
    <message>
        <source>Add MP3 files to the list. Files and folders can be dropped on it too.</source>
        <translation>Lägg till MP3-filer i listan. Filer och mappar kan också släppas på den.</translation>
    </message>
    <message>
        <source>Remove file</source>
        <translation>Ta bort fil</translation>
    </message>
    <message>
        <source>Remove the selected filename from the list.</source>
        <translation>Ta bort det markerade filnamnet från listan.</translation>
    </message>
    <message>
        <source>Clear list</source>
        <translation>Töm listan</translation>
    </message>
    <message>
        <source>Move u&amp;p</source>
        <translation>Flytta u&amp;pp</translation>
    </message>
    <message>
        <source>Move the selected file one step up.</source>
        <translation>Flytta den markerade filen ett steg upp.</translation>
    </message>
    <message>
        <source>Mo&amp;ve down</source>
        <translation>F&amp;lytta ner</translation>
    </message>
    <message>
        <source>Move the selected file one step down.</source>
        <translation>Flytta den markerade filen ett steg ner.</translation>
    </message>
    <message>
        <source>Save in ID3v&amp;1.</source>
        <translation>Spara i ID3v&amp;1.</translation>
    </message>
    <message>
        <source>PLM will save the ID3v1 information in all files for you.</source>
        <translation>PLM sparar ID3v1-uppgifterna i alla filer åt dig.</translation>
    </message>
    <message>
        <source>Save in ID3v&amp;2.</source>
        <translation>Spara i ID3v&amp;2.</translation>
    </message>
    <message>
        <source>PLM will save the ID3v2 information in all files for you.</source>
        <translation>PLM sparar ID3v2-uppgifterna i alla filer åt dig.</translation>
    </message>
    <message>
        <source>Re&amp;name Files</source>
        <translation>Döp &amp;om filer</translation>
    </message>
    <message>
        <source>Gives each file the name beside it.</source>
        <translation>Ger varje fil namnet bredvid den.</translation>
    </message>
    <message>
        <source>Clos&amp;e</source>
        <translation>S&amp;täng</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Arkiv</translation>
    </message>
    <message>
        <source>&amp;Add MP3 files...</source>
        <translation>&amp;Lägg till MP3-filer...</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>St&amp;äng</translation>
    </message>
    <message>
        <source>S&amp;how failed files...</source>
        <translation>Visa misslyckade filer (&amp;X)...</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>Stoppa (&amp;Z)</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Förlopp</translation>
    </message>
    <message>
        <source>Artist (Optimized=More than 30 characters)</source>
        <translation>Artist (optimerad = mer än 30 tecken)</translation>
    </message>
    <message>
        <source>Album (More than 30 characters)</source>
        <translation>Album (mer än 30 tecken)</translation>
    </message>
    <message>
        <source>Stopped.</source>
        <translation>Stoppat.</translation>
    </message>
    <message>
        <source>Looking for files...</source>
        <translation>Söker filer...</translation>
    </message>
    <message>
        <source>1 name made.</source>
        <translation>1 namn gjordes.</translation>
    </message>
    <message>
        <source>%1 names made.</source>
        <translation>%1 namn gjordes.</translation>
    </message>
    <message>
        <source>Showing the text...</source>
        <translation>Visar texten...</translation>
    </message>
    <message>
        <source>Scanning...</source>
        <translation>Söker av...</translation>
    </message>
    <message>
        <source>Open Sourcefile</source>
        <translation>Öppna källfil</translation>
    </message>
    <message>
        <source>Not while the main window works.</source>
        <translation>Inte medan huvudfönstret arbetar.</translation>
    </message>
</context>
<context>
    <name>mdlPLM::frmOptions</name>
    <message>
        <source>Options</source>
        <translation>Inställningar</translation>
    </message>
    <message>
        <source>&amp;Name and extension</source>
        <translation>&amp;Namn och filtillägg</translation>
    </message>
    <message>
        <source>Create filename from ID3 tag if possible.</source>
        <translation>Skapa filnamn från ID3-taggen om det går.</translation>
    </message>
    <message>
        <source>Without a tag the new name is made from the old one.</source>
        <translation>Utan tagg görs det nya namnet av det gamla.</translation>
    </message>
    <message>
        <source>Change file extension to: .</source>
        <translation>Ändra filtillägg till: .</translation>
    </message>
    <message>
        <source>The extension of new names, without a dot. Folders are searched for files with this extension, and names are made from ID3 tags only when it is not empty.</source>
        <translation>De nya namnens filtillägg, utan punkt. I mappar söks filer med detta tillägg, och namn görs av ID3-taggar bara när det inte är tomt.</translation>
    </message>
    <message>
        <source>File extension</source>
        <translation>Filtillägg</translation>
    </message>
    <message>
        <source>Use lowercase extensions.</source>
        <translation>Använd filtillägg med små bokstäver.</translation>
    </message>
    <message>
        <source>&amp;Cleaning</source>
        <translation>&amp;Städning</translation>
    </message>
    <message>
        <source>Convert underscore to space.</source>
        <translation>Gör om understreck till blanksteg.</translation>
    </message>
    <message>
        <source>Convert %20 to space.</source>
        <translation>Gör om %20 till blanksteg.</translation>
    </message>
    <message>
        <source>Remove multiple spaces.</source>
        <translation>Ta bort upprepade blanksteg.</translation>
    </message>
    <message>
        <source>Remove leading and trailing parentheses.</source>
        <translation>Ta bort parenteser i början och slutet.</translation>
    </message>
    <message>
        <source>Used for tag texts and for names from text.</source>
        <translation>Används för taggtexter och för namn från text.</translation>
    </message>
    <message>
        <source>Fix common misstakes.</source>
        <translation>Rätta vanliga misstag.</translation>
    </message>
    <message>
        <source>Puts missing blanks around dashes, and takes out surplus dots, dashes and empty parentheses.</source>
        <translation>Sätter in blanksteg som saknas runt streck och tar bort överflödiga punkter, streck och tomma parenteser.</translation>
    </message>
    <message>
        <source>Remove characters:</source>
        <translation>Ta bort tecken:</translation>
    </message>
    <message>
        <source>Characters to remove</source>
        <translation>Tecken att ta bort</translation>
    </message>
    <message>
        <source>&amp;Sorted files</source>
        <translation>S&amp;orterade filer</translation>
    </message>
    <message>
        <source>Set file attributes to:</source>
        <translation>Sätt filattribut till:</translation>
    </message>
    <message>
        <source>Given to every file before it is copied, moved or renamed.</source>
        <translation>Ges till varje fil innan den kopieras, flyttas eller döps om.</translation>
    </message>
    <message>
        <source>Read-only</source>
        <translation>Skrivskyddad</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Dold</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>Arkiv</translation>
    </message>
    <message>
        <source>&amp;Letter case</source>
        <translation>&amp;Gemener och versaler</translation>
    </message>
    <message>
        <source>None of these.</source>
        <translation>Inget av dessa.</translation>
    </message>
    <message>
        <source>Make the first letter in every word uppercase.</source>
        <translation>Stor bokstav först i varje ord.</translation>
    </message>
    <message>
        <source>Only first letter in artist, title and album uppercase.</source>
        <translation>Stor bokstav bara först i artist, titel och album.</translation>
    </message>
    <message>
        <source>All letters UPPERCASE.</source>
        <translation>Alla bokstäver STORA.</translation>
    </message>
    <message>
        <source>All letters lowercase.</source>
        <translation>Alla bokstäver små.</translation>
    </message>
    <message>
        <source>&amp;Replacements</source>
        <translation>&amp;Ersättningar</translation>
    </message>
    <message>
        <source>Replace the texts of this list, in its order.</source>
        <translation>Ersätt texterna i denna lista, i dess ordning.</translation>
    </message>
    <message>
        <source>&amp;Find:</source>
        <translation>Sö&amp;k:</translation>
    </message>
    <message>
        <source>Text to find</source>
        <translation>Text att söka</translation>
    </message>
    <message>
        <source>text to find</source>
        <translation>text att söka</translation>
    </message>
    <message>
        <source>&amp;Add New</source>
        <translation>&amp;Lägg till ny</translation>
    </message>
    <message>
        <source>Put the two texts into the list as a new pair.</source>
        <translation>Lägg de två texterna i listan som ett nytt par.</translation>
    </message>
    <message>
        <source>&amp;Put:</source>
        <translation>Ersätt &amp;med:</translation>
    </message>
    <message>
        <source>Text to put in its place</source>
        <translation>Text att sätta i stället</translation>
    </message>
    <message>
        <source>text in its place</source>
        <translation>text i stället</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>Ta &amp;bort</translation>
    </message>
    <message>
        <source>Take the pair that is shown out of the list.</source>
        <translation>Ta bort paret som visas ur listan.</translation>
    </message>
    <message>
        <source>ID3 &amp;tags</source>
        <translation>ID3-&amp;taggar</translation>
    </message>
    <message>
        <source>Remove &quot;hidden&quot; ID3v2 tags.</source>
        <translation>Ta bort &quot;dolda&quot; ID3v2-taggar.</translation>
    </message>
    <message>
        <source>When the ID3 tags are saved &quot;hidden&quot; ID3v2 tags will be removed. These tags can contain pictures, lyrics, song length and more. But they are porly supported by todays applications.</source>
        <translation>När ID3-taggarna sparas tas &quot;dolda&quot; ID3v2-taggar bort. De kan innehålla bilder, sångtexter, låtlängd med mera, men dagens program stöder dem dåligt.</translation>
    </message>
    <message>
        <source>Use optimized ID3v1 tags.</source>
        <translation>Använd optimerade ID3v1-taggar.</translation>
    </message>
    <message>
        <source>This will allow you to use up to 59 characters in the Title and Artist frames. (Depending on the length of Album and Comment). WinAmp though, will only show the first 30 characters.</source>
        <translation>Då ryms upp till 59 tecken i titel och artist (beroende på hur långa album och kommentar är). WinAmp visar dock bara de första 30 tecknen.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Avbryt</translation>
    </message>
    <message>
        <source>No pairs in the list.</source>
        <translation>Inga par i listan.</translation>
    </message>
    <message>
        <source>1 pair in the list.</source>
        <translation>1 par i listan.</translation>
    </message>
    <message>
        <source>%1 pairs in the list.</source>
        <translation>%1 par i listan.</translation>
    </message>
    <message>
        <source>The replacement list could not be saved. It holds until the program ends.</source>
        <translation>Ersättningslistan kunde inte sparas. Den gäller tills programmet avslutas.</translation>
    </message>
</context>
<context>
    <name>mdlPLM::frmPLM</name>
    <message>
        <source>Pellmore</source>
        <translation>Pellmore</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Filer</translation>
    </message>
    <message>
        <source>&amp;Add Files...</source>
        <translation>&amp;Lägg till filer...</translation>
    </message>
    <message>
        <source>Add F&amp;older...</source>
        <translation>Lägg till &amp;mapp...</translation>
    </message>
    <message>
        <source>Choose files, sorting lists or playlists to add to the list.</source>
        <translation>Välj filer, sorteringslistor eller spellistor att lägga till i listan.</translation>
    </message>
    <message>
        <source>Loa&amp;d List...</source>
        <translation>Ö&amp;ppna lista...</translation>
    </message>
    <message>
        <source>Replace the list by a sorting list or playlist.</source>
        <translation>Ersätt listan med en sorteringslista eller spellista.</translation>
    </message>
    <message>
        <source>Save List...</source>
        <translation>Spara lista...</translation>
    </message>
    <message>
        <source>Save the list as a sorting list or playlist.</source>
        <translation>Spara listan som en sorteringslista eller spellista.</translation>
    </message>
    <message>
        <source>&amp;Clear</source>
        <translation>&amp;Töm</translation>
    </message>
    <message>
        <source>Take every file out of the list. Nothing is deleted from disk.</source>
        <translation>Ta alla filer ur listan. Inget tas bort från disken.</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Markera alla</translation>
    </message>
    <message>
        <source>Select None</source>
        <translation>Markera inga</translation>
    </message>
    <message>
        <source>Present names:</source>
        <translation>Nuvarande namn:</translation>
    </message>
    <message>
        <source>Present names</source>
        <translation>Nuvarande namn</translation>
    </message>
    <message>
        <source>New names:</source>
        <translation>Nya namn:</translation>
    </message>
    <message>
        <source>New names</source>
        <translation>Nya namn</translation>
    </message>
    <message>
        <source>0 files (0 Mb)</source>
        <translation>0 files (0 Mb)</translation>
    </message>
    <message>
        <source>Show the new name of every file beside the list.</source>
        <translation>Visa varje fils nya namn bredvid listan.</translation>
    </message>
    <message>
        <source>Show Pre&amp;view.</source>
        <translation>&amp;Visa nya namn.</translation>
    </message>
    <message>
        <source>Names</source>
        <translation>Namn</translation>
    </message>
    <message>
        <source>In&amp;put pattern:</source>
        <translation>Inm&amp;önster:</translation>
    </message>
    <message>
        <source>How the present names are built. Its fields are used where a file has no tag: %artist, %title, %album, %track, %year, %genre and %comment. Folders count too, as in %artist\%album\%track - %title.mp3</source>
        <translation>Hur de nuvarande namnen är uppbyggda. Fälten används när en fil saknar tagg: %artist, %title, %album, %track, %year, %genre och %comment. Mappar räknas med, som i %artist\%album\%track - %title.mp3</translation>
    </message>
    <message>
        <source>Names from Text...</source>
        <translation>Namn från text...</translation>
    </message>
    <message>
        <source>Make names and tags from a text that describes an album.</source>
        <translation>Gör namn och taggar av en text som beskriver ett album.</translation>
    </message>
    <message>
        <source>O&amp;utput pattern:</source>
        <translation>&amp;Utmönster:</translation>
    </message>
    <message>
        <source>How the new names are built: any text, and in it the fields %artist, %title, %album, %track, %year, %genre and %comment.</source>
        <translation>Hur de nya namnen byggs upp: valfri text och i den fälten %artist, %title, %album, %track, %year, %genre och %comment.</translation>
    </message>
    <message>
        <source>Options...</source>
        <translation>Inställningar...</translation>
    </message>
    <message>
        <source>Choose how names are cleaned.</source>
        <translation>Välj hur namn städas.</translation>
    </message>
    <message>
        <source>Old filename:</source>
        <translation>Gammalt filnamn:</translation>
    </message>
    <message>
        <source>Play the selected file.</source>
        <translation>Spela den markerade filen.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öppna</translation>
    </message>
    <message>
        <source>&amp;New filename:</source>
        <translation>&amp;Nytt filnamn:</translation>
    </message>
    <message>
        <source>The name that “Sort This File” gives the selected file.</source>
        <translation>Namnet som ”Sortera denna fil” ger den markerade filen.</translation>
    </message>
    <message>
        <source>Sort</source>
        <translation>Sortera</translation>
    </message>
    <message>
        <source>Method:</source>
        <translation>Metod:</translation>
    </message>
    <message>
        <source>Cop&amp;y</source>
        <translation>&amp;Kopiera</translation>
    </message>
    <message>
        <source>&amp;Move</source>
        <translation>Fl&amp;ytta</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Döp om</translation>
    </message>
    <message>
        <source>Give every file its new name. Otherwise it keeps the present one.</source>
        <translation>Ge varje fil dess nya namn. Annars behåller den sitt nuvarande.</translation>
    </message>
    <message>
        <source>Fi&amp;x Filenames</source>
        <translation>Fi&amp;xa filnamn</translation>
    </message>
    <message>
        <source>Folders:</source>
        <translation>Mappar:</translation>
    </message>
    <message>
        <source>Sort in folders by genre.</source>
        <translation>Sortera i mappar efter genre.</translation>
    </message>
    <message>
        <source>&amp;Genre</source>
        <translation>&amp;Genre</translation>
    </message>
    <message>
        <source>Sort in folders in alphabetical order.</source>
        <translation>Sortera i mappar i bokstavsordning.</translation>
    </message>
    <message>
        <source>Alpha&amp;betical</source>
        <translation>Alfa&amp;betisk</translation>
    </message>
    <message>
        <source>A subfolder with the artists name will be created if there are at least X songs from the same artist in the files list.</source>
        <translation>En undermapp med artistens namn skapas om det finns minst X låtar av samma artist i fillistan.</translation>
    </message>
    <message>
        <source>Cr&amp;eate subfolder if</source>
        <translation>Undermapp &amp;om</translation>
    </message>
    <message>
        <source>Number of songs for a subfolder</source>
        <translation>Antal låtar för en undermapp</translation>
    </message>
    <message>
        <source>5</source>
        <translation>5</translation>
    </message>
    <message>
        <source>or more songs</source>
        <translation>eller fler låtar</translation>
    </message>
    <message>
        <source>by one artist</source>
        <translation>av en artist</translation>
    </message>
    <message>
        <source>&amp;Target folder:</source>
        <translation>&amp;Målmapp:</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>Bläddra...</translation>
    </message>
    <message>
        <source>Choose the target folder.</source>
        <translation>Välj målmapp.</translation>
    </message>
    <message>
        <source>If it exists:</source>
        <translation>Om den finns:</translation>
    </message>
    <message>
        <source>Ask for every file whether to replace it.</source>
        <translation>Fråga för varje fil om den ska ersättas.</translation>
    </message>
    <message>
        <source>Prompt</source>
        <translation>Fråga</translation>
    </message>
    <message>
        <source>Do not replace existing files.</source>
        <translation>Ersätt inte filer som finns.</translation>
    </message>
    <message>
        <source>S&amp;kip</source>
        <translation>&amp;Hoppa över</translation>
    </message>
    <message>
        <source>Replace existing files.</source>
        <translation>Ersätt filer som finns.</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersätt</translation>
    </message>
    <message>
        <source>Sort Th&amp;is File</source>
        <translation>Sortera denna &amp;fil</translation>
    </message>
    <message>
        <source>Sort the selected file under the name in the box “New filename”.</source>
        <translation>Sortera den markerade filen med namnet i rutan ”Nytt filnamn”.</translation>
    </message>
    <message>
        <source>Sort All No&amp;w!</source>
        <translation>&amp;Sortera alla nu!</translation>
    </message>
    <message>
        <source>Sort every selected file.</source>
        <translation>Sortera alla markerade filer.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Arkiv</translation>
    </message>
    <message>
        <source>&amp;List</source>
        <translation>L&amp;ista</translation>
    </message>
    <message>
        <source>ID&amp;3</source>
        <translation>ID&amp;3</translation>
    </message>
    <message>
        <source>&amp;Sort</source>
        <translation>Sorte&amp;ring</translation>
    </message>
    <message>
        <source>T&amp;ools</source>
        <translation>V&amp;erktyg</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Hj&amp;älp</translation>
    </message>
    <message>
        <source>&amp;Load List...</source>
        <translation>Ö&amp;ppna lista...</translation>
    </message>
    <message>
        <source>&amp;Save List...</source>
        <translation>&amp;Spara lista...</translation>
    </message>
    <message>
        <source>&amp;Clear List</source>
        <translation>&amp;Töm listan</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Avsluta</translation>
    </message>
    <message>
        <source>&amp;Edit New Name...</source>
        <translation>&amp;Redigera nytt namn...</translation>
    </message>
    <message>
        <source>&amp;Remove from List</source>
        <translation>Ta &amp;bort från listan</translation>
    </message>
    <message>
        <source>&amp;Delete from Disk...</source>
        <translation>Ta bort från &amp;disken...</translation>
    </message>
    <message>
        <source>Remove Missing &amp;Files from List</source>
        <translation>Ta bort &amp;filer som saknas från listan</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>Markera &amp;alla</translation>
    </message>
    <message>
        <source>Select &amp;None</source>
        <translation>Markera &amp;inga</translation>
    </message>
    <message>
        <source>&amp;Invert Selection</source>
        <translation>&amp;Omvänd markering</translation>
    </message>
    <message>
        <source>Select Files with ID3v&amp;1 Tag</source>
        <translation>Markera filer med ID3v&amp;1-tagg</translation>
    </message>
    <message>
        <source>Select Files with ID3v&amp;2 Tag</source>
        <translation>Markera filer med ID3v&amp;2-tagg</translation>
    </message>
    <message>
        <source>&amp;Save ID3</source>
        <translation>&amp;Spara ID3</translation>
    </message>
    <message>
        <source>&amp;Fix ID3</source>
        <translation>&amp;Fixa ID3</translation>
    </message>
    <message>
        <source>Copy &amp;to ID3v1</source>
        <translation>Kopiera &amp;till ID3v1</translation>
    </message>
    <message>
        <source>&amp;Copy from ID3v1</source>
        <translation>&amp;Kopiera från ID3v1</translation>
    </message>
    <message>
        <source>&amp;More...</source>
        <translation>&amp;Mer...</translation>
    </message>
    <message>
        <source>Sort &amp;All Now!</source>
        <translation>Sortera &amp;alla nu!</translation>
    </message>
    <message>
        <source>Sort &amp;This File</source>
        <translation>Sortera &amp;denna fil</translation>
    </message>
    <message>
        <source>&amp;Names from Text...</source>
        <translation>&amp;Namn från text...</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>&amp;Inställningar...</translation>
    </message>
    <message>
        <source>&amp;Play File</source>
        <translation>&amp;Spela fil</translation>
    </message>
    <message>
        <source>&amp;Stop Playing</source>
        <translation>S&amp;luta spela</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>&amp;Om</translation>
    </message>
</context>
<context>
    <name>mdlPLM::frmPLM_tagpanel</name>
    <message>
        <source>File ID3 info:</source>
        <translation>Filens ID3-data:</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Spelare</translation>
    </message>
    <message>
        <source>ID3v&amp;1 tag</source>
        <translation>ID3v&amp;1-tagg</translation>
    </message>
    <message>
        <source>Remove ID3v1 tags from all selected files.</source>
        <translation>Ta bort ID3v1-taggar från alla markerade filer.</translation>
    </message>
    <message>
        <source>Remove!</source>
        <translation>Ta bort!</translation>
    </message>
    <message>
        <source>ID3v&amp;2 tag</source>
        <translation>ID3v&amp;2-tagg</translation>
    </message>
    <message>
        <source>Remove ID3v2 tags from all selected files.</source>
        <translation>Ta bort ID3v2-taggar från alla markerade filer.</translation>
    </message>
    <message>
        <source>Title:</source>
        <translation>Titel:</translation>
    </message>
    <message>
        <source>ID3v1 title</source>
        <translation>ID3v1-titel</translation>
    </message>
    <message>
        <source>ID3v2 title</source>
        <translation>ID3v2-titel</translation>
    </message>
    <message>
        <source>Artist:</source>
        <translation>Artist:</translation>
    </message>
    <message>
        <source>ID3v1 artist</source>
        <translation>ID3v1-artist</translation>
    </message>
    <message>
        <source>ID3v2 artist</source>
        <translation>ID3v2-artist</translation>
    </message>
    <message>
        <source>Album:</source>
        <translation>Album:</translation>
    </message>
    <message>
        <source>ID3v1 album</source>
        <translation>ID3v1-album</translation>
    </message>
    <message>
        <source>ID3v2 album</source>
        <translation>ID3v2-album</translation>
    </message>
    <message>
        <source>Year:</source>
        <translation>År:</translation>
    </message>
    <message>
        <source>ID3v1 year</source>
        <translation>ID3v1-år</translation>
    </message>
    <message>
        <source>ID3v2 year</source>
        <translation>ID3v2-år</translation>
    </message>
    <message>
        <source>Track:</source>
        <translation>Spår:</translation>
    </message>
    <message>
        <source>ID3v1 track</source>
        <translation>ID3v1-spår</translation>
    </message>
    <message>
        <source>ID3v2 track</source>
        <translation>ID3v2-spår</translation>
    </message>
    <message>
        <source>Genre:</source>
        <translation>Genre:</translation>
    </message>
    <message>
        <source>ID3v1 genre</source>
        <translation>ID3v1-genre</translation>
    </message>
    <message>
        <source>ID3v2 genre</source>
        <translation>ID3v2-genre</translation>
    </message>
    <message>
        <source>Comments:</source>
        <translation>Kommentar:</translation>
    </message>
    <message>
        <source>ID3v1 comments</source>
        <translation>ID3v1-kommentar</translation>
    </message>
    <message>
        <source>ID3v2 comments</source>
        <translation>ID3v2-kommentar</translation>
    </message>
    <message>
        <source>Take the texts of the ID3v2 tag over into the ID3v1 tag.</source>
        <translation>För över ID3v2-taggens texter till ID3v1-taggen.</translation>
    </message>
    <message>
        <source>Copy to ID3v1</source>
        <translation>Kopiera till ID3v1</translation>
    </message>
    <message>
        <source>Take the texts of the ID3v1 tag over into the ID3v2 tag.</source>
        <translation>För över ID3v1-taggens texter till ID3v2-taggen.</translation>
    </message>
    <message>
        <source>Copy from ID3v1</source>
        <translation>Kopiera från ID3v1</translation>
    </message>
    <message>
        <source>Only in the ID3v2 tag:</source>
        <translation>Bara i ID3v2-taggen:</translation>
    </message>
    <message>
        <source>Composer:</source>
        <translation>Kompositör:</translation>
    </message>
    <message>
        <source>ID3v2 composer</source>
        <translation>ID3v2-kompositör</translation>
    </message>
    <message>
        <source>Original Artist:</source>
        <translation>Originalartist:</translation>
    </message>
    <message>
        <source>ID3v2 original artist</source>
        <translation>ID3v2-originalartist</translation>
    </message>
    <message>
        <source>Copyright:</source>
        <translation>Copyright:</translation>
    </message>
    <message>
        <source>ID3v2 copyright</source>
        <translation>ID3v2-copyright</translation>
    </message>
    <message>
        <source>URL:</source>
        <translation>URL:</translation>
    </message>
    <message>
        <source>ID3v2 url</source>
        <translation>ID3v2-url</translation>
    </message>
    <message>
        <source>Encoded By:</source>
        <translation>Kodad av:</translation>
    </message>
    <message>
        <source>ID3v2 encoded by</source>
        <translation>ID3v2 kodad av</translation>
    </message>
    <message>
        <source>Clean up the ID3 tags.</source>
        <translation>Städa ID3-taggarna.</translation>
    </message>
    <message>
        <source>Fix ID3</source>
        <translation>Fixa ID3</translation>
    </message>
    <message>
        <source>Show other &quot;hidden&quot; ID3v2 frames in the file.</source>
        <translation>Visa andra &quot;dolda&quot; ID3v2-ramar i filen.</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mer</translation>
    </message>
    <message>
        <source>Save changes to ID3-tags.</source>
        <translation>Spara ändringar i ID3-taggar.</translation>
    </message>
    <message>
        <source>Save ID3</source>
        <translation>Spara ID3</translation>
    </message>
    <message>
        <source>Stream</source>
        <translation>Ljudström</translation>
    </message>
    <message>
        <source>There is no ID3v1 tag.</source>
        <translation>Det finns ingen ID3v1-tagg.</translation>
    </message>
    <message>
        <source>There is no ID3v2 tag.</source>
        <translation>Det finns ingen ID3v2-tagg.</translation>
    </message>
    <message>
        <source>Select one file first.</source>
        <translation>Markera en fil först.</translation>
    </message>
    <message>
        <source>Searching: %1 %</source>
        <translation>Söker: %1 %</translation>
    </message>
</context>
<context>
    <name>mdlPLM::frmSorting</name>
    <message>
        <source>PLM - Sorting...</source>
        <translation>PLM - Sorterar...</translation>
    </message>
    <message>
        <source>Copying file:</source>
        <translation>Kopierar fil:</translation>
    </message>
    <message>
        <source>File being sorted</source>
        <translation>Filen som sorteras</translation>
    </message>
    <message>
        <source>Where it goes</source>
        <translation>Vart den ska</translation>
    </message>
    <message>
        <source>Files sorted</source>
        <translation>Sorterade filer</translation>
    </message>
    <message>
        <source>%v of %m files</source>
        <translation>%v av %m filer</translation>
    </message>
    <message>
        <source>Progress of the present file</source>
        <translation>Den aktuella filens förlopp</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Paus</translation>
    </message>
    <message>
        <source>Stop after the present file. What has been sorted stays sorted.</source>
        <translation>Sluta efter den aktuella filen. Det som är sorterat förblir sorterat.</translation>
    </message>
    <message>
        <source>&amp;Done!</source>
        <translation>&amp;Klart!</translation>
    </message>
</context>
</TS>
