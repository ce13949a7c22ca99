<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>CAMERA</name>
    <message>
        <source>APPLICATION_NAME</source>
        <translation>Kamera-Diagnose</translation>
    </message>
    <message>
        <source>CAMERA</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>QUICK_CAMERA</source>
        <translation>Schnelle Kameratests</translation>
    </message>
    <message>
        <source>QUICK_CAMERA_TESTS_TOOLTIP</source>
        <translation>Kurze Tests, die zeigen, ob die Kamera funktioniert.</translation>
    </message>
    <message>
        <source>CAMERA_CAPTURE_TEST</source>
        <translation>Kamera-Bildtest</translation>
    </message>
    <message>
        <source>CAMERA_CAPTURE_TEST_DESCRIPTION</source>
        <translation>Zeigt das Livebild der Kamera und fragt, ob es richtig war.</translation>
    </message>
    <message>
        <source>CAMERA_BARCODE_TEST</source>
        <translation>Kamera-Barcodetest</translation>
    </message>
    <message>
        <source>CAMERA_BARCODE_TEST_DESCRIPTION</source>
        <translation>Liest einen Barcode, der vor die Kamera gehalten wird.</translation>
    </message>
    <message>
        <source>UDI</source>
        <translation>Eindeutige Gerätekennung</translation>
    </message>
    <message>
        <source>CAMERA_DESCRIPTION</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>CAMERA_MANUFACTURER</source>
        <translation>Hersteller</translation>
    </message>
    <message>
        <source>CAMERA_HARDWARE_ID</source>
        <translation>Hardware-ID</translation>
    </message>
    <message>
        <source>CAMERA_TYPE</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>DRIVER_VERSION</source>
        <translation>Treiberversion</translation>
    </message>
    <message>
        <source>CAMERA_VENDOR</source>
        <translation>Anbieter</translation>
    </message>
    <message>
        <source>POSSIBLE_DEFECTIVE_COMPONENTS</source>
        <translation>Möglicherweise defekte Teile</translation>
    </message>
    <message>
        <source>CAMERA_DEVICE</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>THIS_TEST_CANNOT_BE_PERFORMED_BECAUSE_THE_DEVICE_COULD_NOT_BE_IDENTIFIED_OR_HAS_BEEN_DISCONNECTED</source>
        <translation>Dieser Test ist nicht möglich, weil das Gerät nicht erkannt werden konnte oder entfernt wurde.</translation>
    </message>
    <message>
        <source>CANNOT_ACCESS_DEVICE</source>
        <translation>Auf die Kamera kann nicht zugegriffen werden. Vielleicht benutzt sie ein anderes Programm.</translation>
    </message>
    <message>
        <source>FAILED_TO_INITIALIZE</source>
        <translation>Die Kamera konnte nicht gestartet werden.</translation>
    </message>
    <message>
        <source>FAILED_TO_CAPTURE</source>
        <translation>Mit der Kamera konnte kein Bild aufgenommen werden.</translation>
    </message>
    <message>
        <source>FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED</source>
        <translation>Es konnte kein Bild aufgenommen werden, weil die Kamera entfernt wurde.</translation>
    </message>
    <message>
        <source>FAILED_TO_CAPTURE_DUE_TIMEOUT</source>
        <translation>Die Kamera hat nicht rechtzeitig ein Bild geliefert.</translation>
    </message>
    <message>
        <source>TEST_ABORTED_BY_EVENT</source>
        <translation>Der Test wurde durch ein Ereignis des Systems beendet.</translation>
    </message>
    <message>
        <source>CAMERA_RESULT_FAILED</source>
        <translation>Das Bild der Kamera war nicht richtig.</translation>
    </message>
    <message>
        <source>BARCODE_VALUE</source>
        <translation>Barcode:</translation>
    </message>
    <message>
        <source>BARCODE_FAIL_SCAN_MESSAGE</source>
        <translation>Der Barcode konnte nicht gelesen werden.</translation>
    </message>
    <message>
        <source>BARCODE_CANCELED_DUE_INVALID_INPUT</source>
        <translation>Der Test wurde beendet, weil der Barcode zweimal keinen gültigen Wert enthielt.</translation>
    </message>
    <message>
        <source>CAMERA_DIALOG_TITLE</source>
        <translation>Kamera-Bildtest</translation>
    </message>
    <message>
        <source>CAMERA_BARCODE_DIALOG_TITLE</source>
        <translation>Kamera-Barcodetest</translation>
    </message>
    <message>
        <source>CAMERA_FAIL_LABEL</source>
        <translation>Drücken Sie „Fehler“, wenn die Kamera den Barcode nicht liest.</translation>
    </message>
    <message>
        <source>CLOSE_POP_UP</source>
        <translation>Fenster schließen</translation>
    </message>
    <message>
        <source>FAIL</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>INITIAL_MESSAGE</source>
        <translation>Gleich wird das Livebild der Kamera gezeigt. Sehen Sie es genau an: Danach werden Sie gefragt, ob es richtig war. Schließen Sie das Bild, wenn Sie genug gesehen haben.

Sind Sie bereit?</translation>
    </message>
    <message>
        <source>CHECK_CAMERA_IMAGE</source>
        <translation>Hat die Kamera ein klares Livebild mit den richtigen Farben gezeigt?</translation>
    </message>
    <message>
        <source>CAMERA_POINT_BARCODE_MESSAGE</source>
        <translation>Halten Sie einen Barcode vor die Kamera, innerhalb der Markierungen.</translation>
    </message>
    <message>
        <source>CAMERA_BARCODE_WARNING</source>
        <translation>Dieser Barcode enthält keinen gültigen Wert</translation>
    </message>
    <message>
        <source>CAMERA_BARCODE_RETRY_MESSAGE</source>
        <translation>Er darf nur Buchstaben und Ziffern enthalten, höchstens 60. Versuchen Sie einen anderen Barcode.</translation>
    </message>
</context>
<context>
    <name>ADVICE</name>
    <message>
        <source>THIS_TEST_CANNOT_BE_PERFORMED_BECAUSE_THE_DEVICE_COULD_NOT_BE_IDENTIFIED_OR_HAS_BEEN_DISCONNECTED</source>
        <translation>Schließen Sie die Kamera wieder an, suchen Sie nach Kameras und wiederholen Sie den Test.</translation>
    </message>
    <message>
        <source>CANNOT_ACCESS_DEVICE</source>
        <translation>Schließen Sie Programme, die die Kamera benutzen, und erlauben Sie Desktop-Apps in den Datenschutzeinstellungen von Windows den Zugriff.</translation>
    </message>
    <message>
        <source>FAILED_TO_INITIALIZE</source>
        <translation>Ziehen Sie die Kamera ab und stecken Sie sie wieder an, oder installieren Sie ihren Treiber neu.</translation>
    </message>
    <message>
        <source>FAILED_TO_CAPTURE</source>
        <translation>Wiederholen Sie den Test. Tritt es wieder auf, versuchen Sie einen anderen Anschluss oder ein anderes Kabel.</translation>
    </message>
    <message>
        <source>FAILED_TO_CAPTURE_DEVICE_WAS_REMOVED</source>
        <translation>Schließen Sie die Kamera wieder an. Hat sie niemand abgezogen, prüfen Sie ihr Kabel.</translation>
    </message>
    <message>
        <source>FAILED_TO_CAPTURE_DUE_TIMEOUT</source>
        <translation>Prüfen Sie, ob die Kamera eingeschaltet ist, und wiederholen Sie den Test.</translation>
    </message>
    <message>
        <source>TEST_ABORTED_BY_EVENT</source>
        <translation>Wiederholen Sie den Test.</translation>
    </message>
    <message>
        <source>CAMERA_RESULT_FAILED</source>
        <translation>Reinigen Sie die Linse und öffnen Sie ihre Abdeckung. Bleibt das Bild falsch, ist die Kamera wahrscheinlich defekt.</translation>
    </message>
    <message>
        <source>BARCODE_FAIL_SCAN_MESSAGE</source>
        <translation>Versuchen Sie einen anderen Barcode bei gutem Licht. Wird keiner gelesen, ist die Kamera wahrscheinlich unscharf.</translation>
    </message>
    <message>
        <source>BARCODE_CANCELED_DUE_INVALID_INPUT</source>
        <translation>Nehmen Sie einen Barcode, der nur Buchstaben und Ziffern enthält, höchstens 60.</translation>
    </message>
    <message>
        <source>POSSIBLE_DEFECTIVE_COMPONENTS</source>
        <translation>Probieren Sie die Kamera an einem anderen PC oder eine andere an diesem, bevor Sie sie ersetzen.</translation>
    </message>
</context>
<context>
    <name>CameraView</name>
    <message>
        <source>Run</source>
        <translation>Starten</translation>
    </message>
    <message>
        <source>Run: %1</source>
        <translation>Starten: %1</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Shows this help; with -Mcamera the module&apos;s, too.</source>
        <translation>Zeigt diese Hilfe; mit -Mcamera auch die des Moduls.</translation>
    </message>
    <message>
        <source>Shows the versions of this program and of Qt.</source>
        <translation>Zeigt die Versionen dieses Programms und von Qt.</translation>
    </message>
    <message>
        <source>Shows the cameras with their properties and runs nothing.</source>
        <translation>Zeigt die Kameras mit ihren Eigenschaften und führt nichts aus.</translation>
    </message>
    <message>
        <source>The module whose tests are to run: -Mcamera.</source>
        <translation>Das Modul, dessen Tests laufen sollen: -Mcamera.</translation>
    </message>
    <message>
        <source>Runs the tests with windows. Without it they cannot run and say so.</source>
        <translation>Führt die Tests mit Fenstern aus. Ohne sie können sie nicht laufen und sagen das.</translation>
    </message>
    <message>
        <source>Who answers the windows: ask (the user), pass (confirms, waits, says yes), fail (says no, or presses the fail button), close (closes the test&apos;s window, then the question). The default is ask.</source>
        <translation>Wer die Fenster beantwortet: ask (der Benutzer), pass (bestätigt, wartet, sagt ja), fail (sagt nein oder drückt „Fehler“), close (schließt das Fenster des Tests, dann die Frage). Vorgabe ist ask.</translation>
    </message>
    <message>
        <source>How long the live picture of the capture test is shown, in whole seconds.</source>
        <translation>Wie lange der Bildtest das Livebild zeigt, in ganzen Sekunden.</translation>
    </message>
    <message>
        <source>Runs the whole list of tests so many times.</source>
        <translation>Führt die ganze Liste der Tests so oft aus.</translation>
    </message>
    <message>
        <source>Writes one line of JSON for each test into a new file; - is standard output.</source>
        <translation>Schreibt für jeden Test eine Zeile JSON in eine neue Datei; - ist die Standardausgabe.</translation>
    </message>
    <message>
        <source>Writes a page about all tests into a new file.</source>
        <translation>Schreibt eine Seite über alle Tests in eine neue Datei.</translation>
    </message>
    <message>
        <source>Writes the results as JUnit XML into a new file.</source>
        <translation>Schreibt die Ergebnisse als JUnit-XML in eine neue Datei.</translation>
    </message>
    <message>
        <source>Writes a page, a record and the pictures of each test into this folder.</source>
        <translation>Schreibt für jeden Test eine Seite, ein Protokoll und die Bilder in diesen Ordner.</translation>
    </message>
    <message>
        <source>Runs nothing, but makes --html and --junit from a record that --json wrote.</source>
        <translation>Führt nichts aus, sondern erzeugt --html und --junit aus einem Protokoll, das --json geschrieben hat.</translation>
    </message>
    <message>
        <source>Saves pictures of the windows of each test into this folder.</source>
        <translation>Speichert Bilder der Fenster jedes Tests in diesem Ordner.</translation>
    </message>
    <message>
        <source>The name of the person who tests, for the reports.</source>
        <translation>Der Name der prüfenden Person, für die Berichte.</translation>
    </message>
    <message>
        <source>The serial number of the PC, for the reports.</source>
        <translation>Die Seriennummer des PCs, für die Berichte.</translation>
    </message>
    <message>
        <source>The language of all texts: en or de. By default the system&apos;s.</source>
        <translation>Die Sprache aller Texte: en oder de. Vorgabe ist die des Systems.</translation>
    </message>
    <message>
        <source>Appends what happens to this file, with the time.</source>
        <translation>Hängt an diese Datei an, was geschieht, mit der Uhrzeit.</translation>
    </message>
    <message>
        <source>Writes only errors.</source>
        <translation>Schreibt nur Fehler.</translation>
    </message>
    <message>
        <source>The module&apos;s library; by default module_camera.dll beside this program.</source>
        <translation>Die Bibliothek des Moduls; Vorgabe ist module_camera.dll neben diesem Programm.</translation>
    </message>
    <message>
        <source>Cancels each test after so many seconds.</source>
        <translation>Bricht jeden Test nach so vielen Sekunden ab.</translation>
    </message>
    <message>
        <source>Raises an event of the host so many seconds after a test began.</source>
        <translation>Löst so viele Sekunden nach Beginn eines Tests ein Ereignis des Hosts aus.</translation>
    </message>
    <message>
        <source>--%1 needs a whole number from %2 to %3, not &quot;%4&quot;.</source>
        <translation>--%1 braucht eine ganze Zahl von %2 bis %3, nicht „%4“.</translation>
    </message>
    <message>
        <source>--%1 needs a number of seconds, not &quot;%2&quot;.</source>
        <translation>--%1 braucht eine Zahl von Sekunden, nicht „%2“.</translation>
    </message>
    <message>
        <source>--answer is ask, pass, fail or close, not &quot;%1&quot;.</source>
        <translation>--answer ist ask, pass, fail oder close, nicht „%1“.</translation>
    </message>
    <message>
        <source>--event-after needs seconds and a value as in 2:1, not &quot;%1&quot;.</source>
        <translation>--event-after braucht Sekunden und einen Wert wie in 2:1, nicht „%1“.</translation>
    </message>
    <message>
        <source>--language is en or de, not &quot;%1&quot;.</source>
        <translation>--language ist en oder de, nicht „%1“.</translation>
    </message>
    <message>
        <source>--list runs nothing: it takes neither -M nor tests and cameras.</source>
        <translation>--list führt nichts aus: Es nimmt weder -M noch Tests und Kameras.</translation>
    </message>
    <message>
        <source>Tests and cameras need the module that they belong to: -Mcamera.</source>
        <translation>Tests und Kameras brauchen das Modul, zu dem sie gehören: -Mcamera.</translation>
    </message>
    <message>
        <source>--answer and --pictures need windows: --ui.</source>
        <translation>--answer und --pictures brauchen Fenster: --ui.</translation>
    </message>
    <message>
        <source>See --help.</source>
        <translation>Siehe --help.</translation>
    </message>
    <message>
        <source>The diagnostic Q (or quick) and, in quotation marks, words of tests: Q&quot;c b&quot;. Either may be left out; no test stands for all tests.</source>
        <translation>Die Diagnose Q (oder quick) und, in Anführungszeichen, Wörter von Tests: Q"c b". Beides darf fehlen; kein Test steht für alle Tests.</translation>
    </message>
    <message>
        <source>Numbers or unique identifiers of cameras as --list shows them; none stands for all cameras.</source>
        <translation>Nummern oder eindeutige Kennungen von Kameras, wie --list sie zeigt; keine steht für alle Kameras.</translation>
    </message>
    <message>
        <source>Without -M, --list and --report the program&apos;s window opens.

Exit codes:
  0  every test passed, or there was nothing to run
  1  a test failed
  2  the command line or the set-up is wrong; nothing ran
  3  no test failed, but one was cancelled, could not run or is not supported
  4  the module itself failed, or a report could not be written
</source>
        <translation>Ohne -M, --list und --report öffnet sich das Fenster des Programms.

Exit-Codes:
  0  jeder Test ist bestanden, oder es gab nichts auszuführen
  1  ein Test ist nicht bestanden
  2  die Befehlszeile oder die Einrichtung ist falsch; nichts lief
  3  kein Test ist durchgefallen, aber einer wurde abgebrochen, konnte nicht laufen oder wird nicht unterstützt
  4  das Modul selbst ist gescheitert, oder ein Bericht konnte nicht geschrieben werden
</translation>
    </message>
    <message>
        <source>--report runs nothing: it takes neither -M nor tests and cameras.</source>
        <translation>--report führt nichts aus: Es nimmt weder -M noch Tests und Kameras.</translation>
    </message>
    <message>
        <source>--report needs to know what to make of the record: --html, --junit or --reports.</source>
        <translation>--report muss wissen, was aus dem Protokoll werden soll: --html, --junit oder --reports.</translation>
    </message>
    <message>
        <source>--list makes no reports; --json writes the cameras.</source>
        <translation>--list macht keine Berichte; --json schreibt die Kameras.</translation>
    </message>
    <message>
        <source>--repeat needs tests to run: -Mcamera.</source>
        <translation>--repeat braucht Tests, die laufen sollen: -Mcamera.</translation>
    </message>
    <message>
        <source>Only --json can be written to standard output.</source>
        <translation>Nur --json kann auf die Standardausgabe geschrieben werden.</translation>
    </message>
</context>
<context>
    <name>Console</name>
    <message>
        <source>The log %1 could not be written: %2</source>
        <translation>Das Logbuch %1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Camera %1: %2</source>
        <translation>Kamera %1: %2</translation>
    </message>
    <message>
        <source>%1 on camera %2: %3</source>
        <translation>%1 mit Kamera %2: %3</translation>
    </message>
    <message>
        <source>shows its dialog</source>
        <translation>zeigt sein Fenster</translation>
    </message>
    <message>
        <source>asks: %1</source>
        <translation>fragt: %1</translation>
    </message>
    <message>
        <source>  message: %1 (%2)</source>
        <translation>  Meldung: %1 (%2)</translation>
    </message>
    <message>
        <source>  result: %1 (%2), %3 s</source>
        <translation>  Ergebnis: %1 (%2), %3 s</translation>
    </message>
    <message>
        <source>Cameras: %1</source>
        <translation>Kameras: %1</translation>
    </message>
</context>
<context>
    <name>ExecutionContext</name>
    <message>
        <source>The test asked for nothing.</source>
        <translation>Der Test hat nach nichts gefragt.</translation>
    </message>
</context>
<context>
    <name>HtmlReport</name>
    <message>
        <source>Confirmed</source>
        <translation>Bestätigt</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Ended by an event of the system</source>
        <translation>Durch ein Ereignis des Systems beendet</translation>
    </message>
    <message>
        <source>Not answered</source>
        <translation>Nicht beantwortet</translation>
    </message>
    <message>
        <source>the test itself</source>
        <translation>der Test selbst</translation>
    </message>
    <message>
        <source>the user</source>
        <translation>der Benutzer</translation>
    </message>
    <message>
        <source>this program</source>
        <translation>dieses Programm</translation>
    </message>
    <message>
        <source>an event of the system</source>
        <translation>ein Ereignis des Systems</translation>
    </message>
    <message>
        <source>a fault of the module</source>
        <translation>ein Fehler des Moduls</translation>
    </message>
    <message>
        <source>Time for the picture, in seconds</source>
        <translation>Zeit für das Bild, in Sekunden</translation>
    </message>
    <message>
        <source>Setting %1</source>
        <translation>Einstellung %1</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Run</source>
        <translation>Lauf</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Test</translation>
    </message>
    <message>
        <source>Group of tests</source>
        <translation>Testgruppe</translation>
    </message>
    <message>
        <source>Started</source>
        <translation>Begonnen</translation>
    </message>
    <message>
        <source>Ended</source>
        <translation>Beendet</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Ended by</source>
        <translation>Beendet durch</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>Prüfer</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Seriennummer</translation>
    </message>
    <message>
        <source>Versions</source>
        <translation>Versionen</translation>
    </message>
    <message>
        <source>program %1, module %2, Qt %3</source>
        <translation>Programm %1, Modul %2, Qt %3</translation>
    </message>
    <message>
        <source>The test</source>
        <translation>Der Test</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>The camera</source>
        <translation>Die Kamera</translation>
    </message>
    <message>
        <source>Answer: %1</source>
        <translation>Antwort: %1</translation>
    </message>
    <message>
        <source>What was asked</source>
        <translation>Was gefragt wurde</translation>
    </message>
    <message>
        <source>The picture %1 is not there.</source>
        <translation>Das Bild %1 ist nicht da.</translation>
    </message>
    <message>
        <source>What was on the screen</source>
        <translation>Was auf dem Bildschirm war</translation>
    </message>
    <message>
        <source>Camera and test</source>
        <translation>Kamera und Test</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>No test has run yet.</source>
        <translation>Es ist noch kein Test gelaufen.</translation>
    </message>
    <message>
        <source>Camera test report</source>
        <translation>Bericht über Kameratests</translation>
    </message>
    <message>
        <source>All runs</source>
        <translation>Alle Läufe</translation>
    </message>
</context>
<context>
    <name>JobSelection</name>
    <message>
        <source>The module has no test &quot;%1&quot;; its tests are %2.</source>
        <translation>Das Modul hat keinen Test „%1“; seine Tests sind %2.</translation>
    </message>
    <message>
        <source>No camera was found.</source>
        <translation>Es wurde keine Kamera gefunden.</translation>
    </message>
    <message>
        <source>There is no camera %1; the last one is %2.</source>
        <translation>Es gibt keine Kamera %1; die letzte ist %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is neither the number nor the unique identifier of a camera.</source>
        <translation>„%1“ ist weder die Nummer noch die eindeutige Kennung einer Kamera.</translation>
    </message>
</context>
<context>
    <name>LibrarySearch</name>
    <message>
        <source>Windows lacks Media Foundation (%1 is missing), without which no camera can be found. The N editions of Windows get it with the Media Feature Pack: Settings, Apps, Optional features.</source>
        <translation>Windows fehlt Media Foundation (%1 ist nicht da), ohne das keine Kamera gefunden werden kann. Die N-Editionen von Windows erhalten sie mit dem Media Feature Pack: Einstellungen, Apps, Optionale Features.</translation>
    </message>
    <message>
        <source>it is missing</source>
        <translation>sie fehlt</translation>
    </message>
    <message>
        <source>%1 could not be loaded: %2.</source>
        <translation>%1 konnte nicht geladen werden: %2.</translation>
    </message>
    <message>
        <source>%1 could not be loaded because of %2, which it needs: %3.</source>
        <translation>%1 konnte nicht geladen werden, weil es %2 braucht: %3.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Not tested yet</source>
        <translation>Noch nicht getestet</translation>
    </message>
    <message>
        <source>A test is running</source>
        <translation>Ein Test läuft</translation>
    </message>
    <message>
        <source>Passed: %1 of %2 tests</source>
        <translation>Bestanden: %1 von %2 Tests</translation>
    </message>
    <message>
        <source>&amp;Tests</source>
        <translation>&amp;Tests</translation>
    </message>
    <message>
        <source>Run on this &amp;camera</source>
        <translation>Diese &amp;Kamera testen</translation>
    </message>
    <message>
        <source>Run &amp;all</source>
        <translation>&amp;Alle testen</translation>
    </message>
    <message>
        <source>Ca&amp;ncel</source>
        <translation>Ab&amp;brechen</translation>
    </message>
    <message>
        <source>&amp;Look for cameras</source>
        <translation>Kameras &amp;suchen</translation>
    </message>
    <message>
        <source>&amp;Program</source>
        <translation>&amp;Programm</translation>
    </message>
    <message>
        <source>&amp;Settings…</source>
        <translation>&amp;Einstellungen …</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Cameras</source>
        <translation>Kameras</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Test</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message>
        <source>No camera was found. Connect one: it is found by itself.</source>
        <translation>Es wurde keine Kamera gefunden. Schließen Sie eine an: Sie wird von selbst gefunden.</translation>
    </message>
    <message>
        <source>Running</source>
        <translation>Läuft</translation>
    </message>
    <message>
        <source>The test is being cancelled; the window closes when it has ended.</source>
        <translation>Der Test wird abgebrochen; das Fenster schließt sich, wenn er zu Ende ist.</translation>
    </message>
    <message>
        <source>The test is being cancelled…</source>
        <translation>Der Test wird abgebrochen …</translation>
    </message>
    <message>
        <source>Where to save the report</source>
        <translation>Wohin der Bericht soll</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Gespeichert als %1</translation>
    </message>
    <message>
        <source>Last test a&amp;gain</source>
        <translation>Letzten Test &amp;noch einmal</translation>
    </message>
    <message>
        <source>Those that &amp;did not pass</source>
        <translation>N&amp;icht bestandene</translation>
    </message>
    <message>
        <source>&amp;Open the selected run</source>
        <translation>Gewählten Lauf &amp;öffnen</translation>
    </message>
    <message>
        <source>Looking for cameras…</source>
        <translation>Kameras werden gesucht …</translation>
    </message>
    <message numerus="yes">
        <source>%n more test(s) to run</source>
        <translation>
            <numerusform>Noch %n Test</numerusform>
            <numerusform>Noch %n Tests</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MessageDialog</name>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>&amp;Cancel the test</source>
        <translation>Test &amp;abbrechen</translation>
    </message>
</context>
<context>
    <name>ModuleLibrary</name>
    <message>
        <source>The module %1 is not there.</source>
        <translation>Das Modul %1 ist nicht da.</translation>
    </message>
    <message>
        <source>%1 is not a module: it does not export %2.</source>
        <translation>%1 ist kein Modul: Es exportiert %2 nicht.</translation>
    </message>
    <message>
        <source>The module could not be made: %1</source>
        <translation>Das Modul konnte nicht erzeugt werden: %1</translation>
    </message>
    <message>
        <source>The module could not be made, and did not say why.</source>
        <translation>Das Modul konnte nicht erzeugt werden und hat nicht gesagt, warum.</translation>
    </message>
</context>
<context>
    <name>ModuleRunner</name>
    <message>
        <source>The module failed while it was %1: %2</source>
        <translation>Das Modul ist gescheitert (%1): %2</translation>
    </message>
    <message>
        <source>The module failed while it was %1, and did not say why.</source>
        <translation>Das Modul ist gescheitert (%1) und hat nicht gesagt, warum.</translation>
    </message>
    <message>
        <source>The module gave no interface.</source>
        <translation>Das Modul hat keine Schnittstelle geliefert.</translation>
    </message>
    <message>
        <source>The module lacks a diagnostic that it counts.</source>
        <translation>Dem Modul fehlt eine Diagnose, die es mitzählt.</translation>
    </message>
    <message>
        <source>The module lacks a test that it counts.</source>
        <translation>Dem Modul fehlt ein Test, den es mitzählt.</translation>
    </message>
    <message>
        <source>The module no longer has this test.</source>
        <translation>Das Modul hat diesen Test nicht mehr.</translation>
    </message>
    <message>
        <source>telling its tests</source>
        <translation>beim Nennen seiner Tests</translation>
    </message>
    <message>
        <source>The module tells no names of its tests.</source>
        <translation>Das Modul nennt keine Namen seiner Tests.</translation>
    </message>
    <message>
        <source>looking for cameras</source>
        <translation>bei der Suche nach Kameras</translation>
    </message>
    <message>
        <source>The module cannot look for cameras.</source>
        <translation>Das Modul kann nicht nach Kameras suchen.</translation>
    </message>
    <message>
        <source>The module lacks a camera that it counts.</source>
        <translation>Dem Modul fehlt eine Kamera, die es mitzählt.</translation>
    </message>
    <message>
        <source>The camera is no longer connected.</source>
        <translation>Die Kamera ist nicht mehr angeschlossen.</translation>
    </message>
    <message>
        <source>running the test</source>
        <translation>beim Ausführen des Tests</translation>
    </message>
    <message>
        <source>The module does not have this test yet.</source>
        <translation>Das Modul hat diesen Test noch nicht.</translation>
    </message>
    <message>
        <source>This test does not apply to this camera.</source>
        <translation>Dieser Test passt nicht zu dieser Kamera.</translation>
    </message>
    <message>
        <source>The module refused its settings.</source>
        <translation>Das Modul hat seine Einstellungen abgelehnt.</translation>
    </message>
    <message>
        <source>The module gave the result %1, which has no meaning.</source>
        <translation>Das Modul hat das Ergebnis %1 geliefert, das keine Bedeutung hat.</translation>
    </message>
</context>
<context>
    <name>NewFile</name>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1 is already there, and is not overwritten.</source>
        <translation>%1 ist schon da und wird nicht überschrieben.</translation>
    </message>
    <message>
        <source>The folder %1 could not be made.</source>
        <translation>Der Ordner %1 konnte nicht angelegt werden.</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>There is no module &quot;%1&quot;; this host has: %2.</source>
        <translation>Es gibt kein Modul „%1“; dieser Host hat: %2.</translation>
    </message>
    <message>
        <source>No camera was found.</source>
        <translation>Es wurde keine Kamera gefunden.</translation>
    </message>
</context>
<context>
    <name>ReportFiles</name>
    <message>
        <source>Standard output</source>
        <translation>Die Standardausgabe</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>RunDialog</name>
    <message>
        <source>Run %1</source>
        <translation>Lauf %1</translation>
    </message>
    <message>
        <source>From %1 to %2</source>
        <translation>Von %1 bis %2</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>&amp;Save report…</source>
        <translation>Bericht s&amp;peichern …</translation>
    </message>
    <message>
        <source>Saved as %1</source>
        <translation>Gespeichert als %1</translation>
    </message>
</context>
<context>
    <name>RunJson</name>
    <message>
        <source>a text</source>
        <translation>ein Text</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation>eine ganze Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>a time such as 2026-03-01T14:05:09.250+01:00</source>
        <translation>eine Zeit wie 2026-03-01T14:05:09.250+01:00</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>ein Objekt</translation>
    </message>
    <message>
        <source>a list of objects</source>
        <translation>eine Liste von Objekten</translation>
    </message>
    <message>
        <source>a list of texts</source>
        <translation>eine Liste von Texten</translation>
    </message>
    <message>
        <source>one of: %1</source>
        <translation>eines von: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be %2.</source>
        <translation>„%1“ muss so sein: %2.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is missing; it must be %2.</source>
        <translation>„%1“ fehlt; so muss es sein: %2.</translation>
    </message>
    <message>
        <source>a list</source>
        <translation>eine Liste</translation>
    </message>
    <message>
        <source>The record has the form %1; this program reads the form %2.</source>
        <translation>Die Protokoll hat die Form %1; dieses Programm liest die Form %2.</translation>
    </message>
    <message>
        <source>%1, which is &quot;%2&quot;</source>
        <translation>%1, das ist „%2“</translation>
    </message>
    <message>
        <source>This is not JSON: %1.</source>
        <translation>Das ist kein JSON: %1.</translation>
    </message>
    <message>
        <source>A record is an object: {…}.</source>
        <translation>Eine Protokoll ist ein Objekt: {…}.</translation>
    </message>
    <message>
        <source>%1 could not be read: %2</source>
        <translation>%1 konnte nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1, Zeile %2: %3</translation>
    </message>
</context>
<context>
    <name>RunTexts</name>
    <message>
        <source>Ending the test…</source>
        <translation>Der Test wird beendet …</translation>
    </message>
    <message>
        <source>Waiting for your answer…</source>
        <translation>Ihre Antwort wird erwartet …</translation>
    </message>
    <message>
        <source>Showing the camera&apos;s picture…</source>
        <translation>Das Bild der Kamera wird gezeigt …</translation>
    </message>
    <message>
        <source>Opening the camera…</source>
        <translation>Die Kamera wird geöffnet …</translation>
    </message>
    <message>
        <source>Preparing the test…</source>
        <translation>Der Test wird vorbereitet …</translation>
    </message>
    <message>
        <source>Passed</source>
        <translation>Bestanden</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Nicht bestanden</translation>
    </message>
    <message>
        <source>Not performed</source>
        <translation>Nicht durchgeführt</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Not supported</source>
        <translation>Nicht unterstützt</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>The test found nothing wrong.</source>
        <translation>Der Test hat nichts Fehlerhaftes gefunden.</translation>
    </message>
    <message>
        <source>You ended the test.</source>
        <translation>Sie haben den Test beendet.</translation>
    </message>
    <message>
        <source>The program ended the test.</source>
        <translation>Das Programm hat den Test beendet.</translation>
    </message>
    <message>
        <source>An event of the system ended the test.</source>
        <translation>Ein Ereignis des Systems hat den Test beendet.</translation>
    </message>
    <message>
        <source>The test needs windows, and there are none.</source>
        <translation>Der Test braucht Fenster, und es gibt keine.</translation>
    </message>
    <message>
        <source>The message of the test</source>
        <translation>Die Meldung des Tests</translation>
    </message>
    <message>
        <source>The question of the test</source>
        <translation>Die Frage des Tests</translation>
    </message>
    <message>
        <source>The test&apos;s window a second after it opened</source>
        <translation>Das Fenster des Tests eine Sekunde nach dem Öffnen</translation>
    </message>
    <message>
        <source>The test&apos;s window as it closed</source>
        <translation>Das Fenster des Tests beim Schließen</translation>
    </message>
    <message>
        <source>The last picture of the camera</source>
        <translation>Das letzte Bild der Kamera</translation>
    </message>
</context>
<context>
    <name>RunView</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>As Windows</source>
        <translation>Wie Windows</translation>
    </message>
    <message>
        <source>&amp;Language (from the next start)</source>
        <translation>&amp;Sprache (ab dem nächsten Start)</translation>
    </message>
    <message>
        <source>As the module has it</source>
        <translation>Vorgabe des Moduls</translation>
    </message>
    <message>
        <source>&amp;Operator</source>
        <translation>&amp;Prüfer</translation>
    </message>
    <message>
        <source>&amp;Serial number of the PC</source>
        <translation>S&amp;eriennummer des PCs</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>nowhere</source>
        <translation>nirgends</translation>
    </message>
    <message>
        <source>Folder of the reports</source>
        <translation>Ordner der Berichte</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>&amp;Time of the live picture, in seconds</source>
        <translation>&amp;Dauer des Livebilds, in Sekunden</translation>
    </message>
    <message>
        <source>Report of every run in</source>
        <translation>Bericht jedes Laufs in</translation>
    </message>
    <message>
        <source>C&amp;hoose…</source>
        <translation>&amp;Wählen …</translation>
    </message>
    <message>
        <source>&amp;Nowhere</source>
        <translation>&amp;Nirgends</translation>
    </message>
    <message>
        <source>Choose the folder of the reports</source>
        <translation>Ordner der Berichte wählen</translation>
    </message>
    <message>
        <source>Save reports nowhere</source>
        <translation>Berichte nirgends speichern</translation>
    </message>
</context>
<context>
    <name>QCommandLineParser</name>
    <message>
        <source>Unknown option '%1'.</source>
        <translation>Unbekannte Option „%1“.</translation>
    </message>
    <message>
        <source>Unknown options: %1.</source>
        <translation>Unbekannte Optionen: %1.</translation>
    </message>
    <message>
        <source>Missing value after '%1'.</source>
        <translation>Nach „%1“ fehlt ein Wert.</translation>
    </message>
    <message>
        <source>Unexpected value after '%1'.</source>
        <translation>Unerwarteter Wert nach „%1“.</translation>
    </message>
    <message>
        <source>Usage: %1</source>
        <translation>Aufruf: %1</translation>
    </message>
    <message>
        <source>[options]</source>
        <translation>[Optionen]</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>Optionen:</translation>
    </message>
    <message>
        <source>Arguments:</source>
        <translation>Argumente:</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy &amp;Link Location</source>
        <translation>&amp;Link-Adresse kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
</TS>
