<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="lt" sourcelanguage="en">
<context>
    <name>CloseButton</name>
    <message>
        <source>Close Tab</source>
        <translation>Užverti kortelę</translation>
    </message>
</context>
<context>
    <name>Print Device Input Slot</name>
    <message>
        <source>Automatic</source>
        <translation>Automatiškai</translation>
    </message>
</context>
<context>
    <name>Print Device Output Bin</name>
    <message>
        <source>Automatic</source>
        <translation>Automatiškai</translation>
    </message>
</context>
<context>
    <name>QAbstractFileIconProvider</name>
    <message>
        <source>Alias</source>
        <translation>Nuoroda</translation>
    </message>
    <message>
        <source>Drive</source>
        <translation>Diskas</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Failas</translation>
    </message>
    <message>
        <source>File Folder</source>
        <translation>Aplankas</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Aplankas</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Nuoroda</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Nežinoma</translation>
    </message>
</context>
<context>
    <name>QAbstractSpinBox</name>
    <message>
        <source>&amp;Select All</source>
        <translation>Pažymėti &amp;viską</translation>
    </message>
    <message>
        <source>&amp;Step up</source>
        <translation>&amp;Padidinti</translation>
    </message>
    <message>
        <source>Step &amp;down</source>
        <translation>&amp;Sumažinti</translation>
    </message>
</context>
<context>
    <name>QAccessibleActionInterface</name>
    <message>
        <source>Decrease</source>
        <translation>Sumažinti</translation>
    </message>
    <message>
        <source>Decrease the value</source>
        <translation>Sumažina reikšmę</translation>
    </message>
    <message>
        <source>Goes back a page</source>
        <translation>Grįžta puslapiu atgal</translation>
    </message>
    <message>
        <source>Goes to the next page</source>
        <translation>Eina į kitą puslapį</translation>
    </message>
    <message>
        <source>Increase</source>
        <translation>Padidinti</translation>
    </message>
    <message>
        <source>Increase the value</source>
        <translation>Padidina reikšmę</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>Kitas puslapis</translation>
    </message>
    <message>
        <source>Press</source>
        <translation>Paspausti</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>Ankstesnis puslapis</translation>
    </message>
    <message>
        <source>Scroll Down</source>
        <translation>Slinkti žemyn</translation>
    </message>
    <message>
        <source>Scroll Left</source>
        <translation>Slinkti kairėn</translation>
    </message>
    <message>
        <source>Scroll Right</source>
        <translation>Slinkti dešinėn</translation>
    </message>
    <message>
        <source>Scroll Up</source>
        <translation>Slinkti aukštyn</translation>
    </message>
    <message>
        <source>Scrolls down</source>
        <translation>Slenka žemyn</translation>
    </message>
    <message>
        <source>Scrolls to the left</source>
        <translation>Slenka kairėn</translation>
    </message>
    <message>
        <source>Scrolls to the right</source>
        <translation>Slenka dešinėn</translation>
    </message>
    <message>
        <source>Scrolls up</source>
        <translation>Slenka aukštyn</translation>
    </message>
    <message>
        <source>SetFocus</source>
        <translation>Suteikti židinį</translation>
    </message>
    <message>
        <source>Sets the focus</source>
        <translation>Suteikia židinį</translation>
    </message>
    <message>
        <source>ShowMenu</source>
        <translation>Rodyti meniu</translation>
    </message>
    <message>
        <source>Shows the menu</source>
        <translation>Rodo meniu</translation>
    </message>
    <message>
        <source>Toggle</source>
        <translation>Perjungti</translation>
    </message>
    <message>
        <source>Toggles the state</source>
        <translation>Perjungia būseną</translation>
    </message>
    <message>
        <source>Triggers the action</source>
        <translation>Atlieka veiksmą</translation>
    </message>
</context>
<context>
    <name>QApplication</name>
    <message>
        <source>Executable '%1' requires Qt %2, found Qt %3.</source>
        <translation>Programai „%1“ reikia Qt %2, rasta Qt %3.</translation>
    </message>
    <message>
        <source>Incompatible Qt Library Error</source>
        <translation>Netinkama Qt biblioteka</translation>
    </message>
</context>
<context>
    <name>QComboBox</name>
    <message>
        <source>False</source>
        <translation>Ne</translation>
    </message>
    <message>
        <source>Open the combo box selection popup</source>
        <translation>Atverti pasirinkimų sąrašą</translation>
    </message>
    <message>
        <source>True</source>
        <translation>Taip</translation>
    </message>
</context>
<context>
    <name>QCommandLineParser</name>
    <message>
        <source>Arguments:</source>
        <translation>Argumentai:</translation>
    </message>
    <message>
        <source>Displays help including Qt specific options.</source>
        <translation>Parodo paaiškinimą su Qt parinktimis.</translation>
    </message>
    <message>
        <source>Displays help on commandline options.</source>
        <translation>Parodo parinkčių paaiškinimą.</translation>
    </message>
    <message>
        <source>Displays this help.</source>
        <translation>Parodo šį paaiškinimą.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>Parodo versiją.</translation>
    </message>
    <message>
        <source>Missing value after '%1'.</source>
        <translation>Po „%1“ trūksta reikšmės.</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>Parinktys:</translation>
    </message>
    <message>
        <source>Unexpected value after '%1'.</source>
        <translation>Po „%1“ reikšmės būti negali.</translation>
    </message>
    <message>
        <source>Unknown option '%1'.</source>
        <translation>Nežinoma parinktis „%1“.</translation>
    </message>
    <message>
        <source>Unknown options: %1.</source>
        <translation>Nežinomos parinktys: %1.</translation>
    </message>
    <message>
        <source>Usage: %1</source>
        <translation>Naudojimas: %1</translation>
    </message>
    <message>
        <source>[options]</source>
        <translation>[parinktys]</translation>
    </message>
</context>
<context>
    <name>QCupsJobWidget</name>
    <message>
        <source>Banner Pages</source>
        <translation>Antraštiniai puslapiai</translation>
    </message>
    <message>
        <source>Billing information:</source>
        <translation>Sąskaitybos duomenys:</translation>
    </message>
    <message>
        <source>Classified</source>
        <translation>Įslaptinta</translation>
    </message>
    <message>
        <source>Confidential</source>
        <translation>Konfidencialu</translation>
    </message>
    <message>
        <source>Day (06:00 to 17:59)</source>
        <translation>Dieną (06:00–17:59)</translation>
    </message>
    <message>
        <source>End:</source>
        <translation>Pabaiga:</translation>
    </message>
    <message>
        <source>Hold Indefinitely</source>
        <translation>Sulaikyti</translation>
    </message>
    <message>
        <source>Job</source>
        <translation>Užduotis</translation>
    </message>
    <message>
        <source>Job Control</source>
        <translation>Užduoties valdymas</translation>
    </message>
    <message>
        <source>Job priority:</source>
        <translation>Užduoties pirmumas:</translation>
    </message>
    <message>
        <source>Night (18:00 to 05:59)</source>
        <translation>Naktį (18:00–05:59)</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Nėra</translation>
    </message>
    <message>
        <source>Print Immediately</source>
        <translation>Spausdinti dabar</translation>
    </message>
    <message>
        <source>Scheduled printing:</source>
        <translation>Spausdinimo laikas:</translation>
    </message>
    <message>
        <source>Second Shift (16:00 to 23:59)</source>
        <translation>Antroje pamainoje (16:00–23:59)</translation>
    </message>
    <message>
        <source>Secret</source>
        <translation>Slaptai</translation>
    </message>
    <message>
        <source>Specific Time</source>
        <translation>Nurodytu laiku</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Įprastas</translation>
    </message>
    <message>
        <source>Start:</source>
        <translation>Pradžia:</translation>
    </message>
    <message>
        <source>Third Shift (00:00 to 07:59)</source>
        <translation>Trečioje pamainoje (00:00–07:59)</translation>
    </message>
    <message>
        <source>Top Secret</source>
        <translation>Visiškai slaptai</translation>
    </message>
    <message>
        <source>Unclassified</source>
        <translation>Neįslaptinta</translation>
    </message>
    <message>
        <source>Weekend (Saturday to Sunday)</source>
        <translation>Savaitgalį (šeštadienį ir sekmadienį)</translation>
    </message>
</context>
<context>
    <name>QCupsPrinterSupport</name>
    <message>
        <source>Authentication Needed</source>
        <translation>Reikia prisijungti</translation>
    </message>
    <message>
        <source>Authentication needed to use %1 on %2.</source>
        <translation>Kad galėtumėte naudoti %1 (%2), prisijunkite.</translation>
    </message>
    <message>
        <source>Authentication needed to use %1.</source>
        <translation>Kad galėtumėte naudoti %1, prisijunkite.</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Slaptažodis:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Vardas:</translation>
    </message>
</context>
<context>
    <name>QDialog</name>
    <message>
        <source>What's This?</source>
        <translation>Kas tai?</translation>
    </message>
</context>
<context>
    <name>QDialogButtonBox</name>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Atšaukti</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Užverti</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Ne</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Gerai</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>Iš&amp;saugoti</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Taip</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Nutraukti</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Pritaikyti</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Atšaukti</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Užverti</translation>
    </message>
    <message>
        <source>Close without Saving</source>
        <translation>Užverti neišsaugojus</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Atmesti</translation>
    </message>
    <message>
        <source>Don't Save</source>
        <translation>Neišsaugoti</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Pagalba</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>Nepaisyti</translation>
    </message>
    <message>
        <source>N&amp;o to All</source>
        <translation>N&amp;e viskam</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Gerai</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Atverti</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Atkurti</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>Atkurti numatytąsias reikšmes</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Kartoti</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Išsaugoti</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Išsaugoti viską</translation>
    </message>
    <message>
        <source>Yes to &amp;All</source>
        <translation>Taip &amp;viskam</translation>
    </message>
</context>
<context>
    <name>QErrorMessage</name>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Gerai</translation>
    </message>
    <message>
        <source>&amp;Show this message again</source>
        <translation>&amp;Rodyti šį pranešimą dar kartą</translation>
    </message>
    <message>
        <source>Critical Error:</source>
        <translation>Sunki klaida:</translation>
    </message>
    <message>
        <source>Debug Message:</source>
        <translation>Derinimo pranešimas:</translation>
    </message>
    <message>
        <source>Fatal Error:</source>
        <translation>Lemtinga klaida:</translation>
    </message>
    <message>
        <source>Information:</source>
        <translation>Pranešimas:</translation>
    </message>
    <message>
        <source>Warning:</source>
        <translation>Įspėjimas:</translation>
    </message>
</context>
<context>
    <name>QFile</name>
    <message>
        <source>Cannot create %1 for output</source>
        <translation>Nepavyko sukurti %1</translation>
    </message>
    <message>
        <source>Cannot create %1 for output: %2</source>
        <translation>Nepavyko sukurti %1: %2</translation>
    </message>
    <message>
        <source>Cannot open %1 for input</source>
        <translation>Nepavyko atverti %1</translation>
    </message>
    <message>
        <source>Cannot open destination file: %1</source>
        <translation>Nepavyko atverti failo: %1</translation>
    </message>
    <message>
        <source>Cannot open for output</source>
        <translation>Nepavyko atverti rašymui</translation>
    </message>
    <message>
        <source>Cannot open for output: %1</source>
        <translation>Nepavyko atverti rašymui: %1</translation>
    </message>
    <message>
        <source>Cannot remove source file</source>
        <translation>Nepavyko ištrinti pradinio failo</translation>
    </message>
    <message>
        <source>Destination file exists</source>
        <translation>Toks failas jau yra</translation>
    </message>
    <message>
        <source>Destination file is the same file.</source>
        <translation>Tai tas pats failas.</translation>
    </message>
    <message>
        <source>Error while renaming.</source>
        <translation>Nepavyko pervadinti.</translation>
    </message>
    <message>
        <source>Error while renaming: %1</source>
        <translation>Nepavyko pervadinti: %1</translation>
    </message>
    <message>
        <source>Failure to write block</source>
        <translation>Nepavyko įrašyti</translation>
    </message>
    <message>
        <source>Failure to write block: %1</source>
        <translation>Nepavyko įrašyti: %1</translation>
    </message>
    <message>
        <source>Source file does not exist.</source>
        <translation>Pradinio failo nėra.</translation>
    </message>
    <message>
        <source>Unable to restore from %1: %2</source>
        <translation>Nepavyko atkurti iš %1: %2</translation>
    </message>
    <message>
        <source>Will not rename sequential file using block copy</source>
        <translation>Tokio failo pervadinti negalima</translation>
    </message>
</context>
<context>
    <name>QFileDevice</name>
    <message>
        <source>No file engine available</source>
        <translation>Failo atverti nėra kuo</translation>
    </message>
    <message>
        <source>No file engine available or engine does not support UnMapExtension</source>
        <translation>Failo atvaizduoti negalima</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>%1
Directory not found.
Please verify the correct directory name was given.</source>
        <translation>%1
Aplanko nėra.
Patikrinkite aplanko vardą.</translation>
    </message>
    <message>
        <source>%1
File not found.
Please verify the correct file name was given.</source>
        <translation>%1
Failo nėra.
Patikrinkite failo vardą.</translation>
    </message>
    <message>
        <source>%1 File</source>
        <translation>%1 failas</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>Failas %1 jau yra.
Ar pakeisti jį?</translation>
    </message>
    <message>
        <source>&amp;Choose</source>
        <translation>&amp;Pasirinkti</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>Iš&amp;trinti</translation>
    </message>
    <message>
        <source>&amp;New Folder</source>
        <translation>&amp;Naujas aplankas</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Atverti</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>Pe&amp;rvadinti</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>Iš&amp;saugoti</translation>
    </message>
    <message>
        <source>'%1' is write protected.
Do you want to delete it anyway?</source>
        <translation>„%1“ apsaugotas nuo rašymo.
Ar vis tiek ištrinti?</translation>
    </message>
    <message>
        <source>Alias</source>
        <translation>Nuoroda</translation>
    </message>
    <message>
        <source>All Files (*)</source>
        <translation>Visi failai (*)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Visi failai (*)</translation>
    </message>
    <message>
        <source>Alt+Left</source>
        <translation>Alt+Left</translation>
    </message>
    <message>
        <source>Alt+Right</source>
        <translation>Alt+Right</translation>
    </message>
    <message>
        <source>Alt+Up</source>
        <translation>Alt+Up</translation>
    </message>
    <message>
        <source>Are you sure you want to delete '%1'?</source>
        <translation>Ar tikrai ištrinti „%1“?</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atgal</translation>
    </message>
    <message>
        <source>Change to detail view mode</source>
        <translation>Rodyti išsamų sąrašą</translation>
    </message>
    <message>
        <source>Change to list view mode</source>
        <translation>Rodyti kaip sąrašą</translation>
    </message>
    <message>
        <source>Could not delete directory.</source>
        <translation>Nepavyko ištrinti aplanko.</translation>
    </message>
    <message>
        <source>Create New Folder</source>
        <translation>Sukurti naują aplanką</translation>
    </message>
    <message>
        <source>Create a New Folder</source>
        <translation>Sukurti naują aplanką</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Ištrinti</translation>
    </message>
    <message>
        <source>Detail View</source>
        <translation>Išsamus sąrašas</translation>
    </message>
    <message>
        <source>Directories</source>
        <translation>Aplankai</translation>
    </message>
    <message>
        <source>Directory:</source>
        <translation>Aplankas:</translation>
    </message>
    <message>
        <source>Drive</source>
        <translation>Diskas</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Failas</translation>
    </message>
    <message>
        <source>File &amp;name:</source>
        <translation>Failo &amp;vardas:</translation>
    </message>
    <message>
        <source>File Folder</source>
        <translation>Aplankas</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Failai</translation>
    </message>
    <message>
        <source>Files of type:</source>
        <translation>Failų rūšis:</translation>
    </message>
    <message>
        <source>Find Directory</source>
        <translation>Rasti aplanką</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Aplankas</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Pirmyn</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Grįžti atgal</translation>
    </message>
    <message>
        <source>Go forward</source>
        <translation>Eiti pirmyn</translation>
    </message>
    <message>
        <source>Go to the parent directory</source>
        <translation>Eiti į aukštesnį aplanką</translation>
    </message>
    <message>
        <source>List View</source>
        <translation>Sąrašas</translation>
    </message>
    <message>
        <source>List of places and bookmarks</source>
        <translation>Vietos ir žymelės</translation>
    </message>
    <message>
        <source>Look in:</source>
        <translation>Aplankas:</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Kompiuteris</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Naujas aplankas</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Atverti</translation>
    </message>
    <message>
        <source>Parent Directory</source>
        <translation>Aukštesnis aplankas</translation>
    </message>
    <message>
        <source>Recent Places</source>
        <translation>Paskutinės vietos</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Pašalinti</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Išsaugoti kaip</translation>
    </message>
    <message>
        <source>Shortcut</source>
        <translation>Nuoroda</translation>
    </message>
    <message>
        <source>Show </source>
        <translation>Rodyti: </translation>
    </message>
    <message>
        <source>Show &amp;hidden files</source>
        <translation>Rodyti &amp;paslėptus failus</translation>
    </message>
    <message>
        <source>Sidebar</source>
        <translation>Šoninė juosta</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Nežinoma</translation>
    </message>
</context>
<context>
    <name>QFileSystemModel</name>
    <message>
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message>
        <source>%1 KB</source>
        <translation>%1 KB</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1 TB</translation>
    </message>
    <message>
        <source>%1 byte(s)</source>
        <translation>%1 B</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 B</translation>
    </message>
    <message>
        <source>&lt;b&gt;The name "%1" can not be used.&lt;/b&gt;&lt;p&gt;Try using another name, with fewer characters or no punctuations marks.</source>
        <translation>&lt;b&gt;Vardo „%1“ naudoti negalima.&lt;/b&gt;&lt;p&gt;Pasirinkite kitą, trumpesnį arba be skyrybos ženklų.</translation>
    </message>
    <message>
        <source>&lt;b&gt;The name "%1" cannot be used.&lt;/b&gt;&lt;p&gt;Try using another name, with fewer characters or no punctuation marks.</source>
        <translation>&lt;b&gt;Vardo „%1“ naudoti negalima.&lt;/b&gt;&lt;p&gt;Pasirinkite kitą, trumpesnį arba be skyrybos ženklų.</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Kompiuteris</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Pakeitimo data</translation>
    </message>
    <message>
        <source>Invalid filename</source>
        <translation>Netinkamas failo vardas</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Rūšis</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Kompiuteris</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Vardas</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Dydis</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Rūšis</translation>
    </message>
</context>
<context>
    <name>QGnomeTheme</name>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Atšaukti</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Užverti</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;Gerai</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>Iš&amp;saugoti</translation>
    </message>
    <message>
        <source>Close without Saving</source>
        <translation>Užverti neišsaugojus</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>LTR</translation>
    </message>
</context>
<context>
    <name>QIODevice</name>
    <message>
        <source>No space left on device</source>
        <translation>Diske nebėra vietos</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Tokio failo ar aplanko nėra</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Nėra teisės</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>Atverta per daug failų</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>Nežinoma klaida</translation>
    </message>
    <message>
        <source>file to open is a directory</source>
        <translation>Tai ne failas, o aplankas</translation>
    </message>
</context>
<context>
    <name>QImageReader</name>
    <message>
        <source>File not found</source>
        <translation>Failo nėra</translation>
    </message>
    <message>
        <source>Invalid device</source>
        <translation>Netinkamas įrenginys</translation>
    </message>
    <message>
        <source>Unable to read image data</source>
        <translation>Nepavyko perskaityti paveikslo</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>Nežinoma klaida</translation>
    </message>
    <message>
        <source>Unsupported image format</source>
        <translation>Tokio pavidalo paveikslai netinka</translation>
    </message>
</context>
<context>
    <name>QImageWriter</name>
    <message>
        <source>Cannot open device for writing: %1</source>
        <translation>Nepavyko atverti rašymui: %1</translation>
    </message>
    <message>
        <source>Device is not set</source>
        <translation>Nenurodyta, kur rašyti</translation>
    </message>
    <message>
        <source>Device not writable</source>
        <translation>Rašyti negalima</translation>
    </message>
    <message>
        <source>Image is empty</source>
        <translation>Paveikslas tuščias</translation>
    </message>
    <message>
        <source>Unknown error</source>
        <translation>Nežinoma klaida</translation>
    </message>
    <message>
        <source>Unsupported image format</source>
        <translation>Tokio pavidalo paveikslai netinka</translation>
    </message>
</context>
<context>
    <name>QInputDialog</name>
    <message>
        <source>Enter a value:</source>
        <translation>Įveskite reikšmę:</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopijuoti</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Į&amp;klijuoti</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Grąžinti</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Atšaukti</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Iš&amp;kirpti</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Ištrinti</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Pažymėti viską</translation>
    </message>
</context>
<context>
    <name>QMdiArea</name>
    <message>
        <source>(Untitled)</source>
        <translation>(Be vardo)</translation>
    </message>
</context>
<context>
    <name>QMdiSubWindow</name>
    <message>
        <source>%1 - [%2]</source>
        <translation>%1 - [%2]</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Užverti</translation>
    </message>
    <message>
        <source>&amp;Move</source>
        <translation>&amp;Perkelti</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Atkurti</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>Keisti &amp;dydį</translation>
    </message>
    <message>
        <source>- [%1]</source>
        <translation>- [%1]</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Užverti</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Pagalba</translation>
    </message>
    <message>
        <source>Ma&amp;ximize</source>
        <translation>Iš&amp;skleisti</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Išskleisti</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Meniu</translation>
    </message>
    <message>
        <source>Mi&amp;nimize</source>
        <translation>Su&amp;skleisti</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Suskleisti</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Atkurti</translation>
    </message>
    <message>
        <source>Restore Down</source>
        <translation>Sumažinti langą</translation>
    </message>
    <message>
        <source>Shade</source>
        <translation>Suvynioti</translation>
    </message>
    <message>
        <source>Stay on &amp;Top</source>
        <translation>&amp;Visada viršuje</translation>
    </message>
    <message>
        <source>Unshade</source>
        <translation>Išvynioti</translation>
    </message>
</context>
<context>
    <name>QMessageBox</name>
    <message>
        <source>&lt;h3&gt;About Qt&lt;/h3&gt;&lt;p&gt;This program uses Qt version %1.&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Apie Qt&lt;/h3&gt;&lt;p&gt;Ši programa naudoja Qt %1.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>About Qt</source>
        <translation>Apie Qt</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Pagalba</translation>
    </message>
    <message>
        <source>Hide Details...</source>
        <translation>Slėpti išsamesnius duomenis...</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Gerai</translation>
    </message>
    <message>
        <source>Show Details...</source>
        <translation>Rodyti išsamiau...</translation>
    </message>
</context>
<context>
    <name>QPSQLDriver</name>
    <message>
        <source>Could not begin transaction</source>
        <translation>Nepavyko pradėti transakcijos</translation>
    </message>
    <message>
        <source>Could not commit transaction</source>
        <translation>Nepavyko patvirtinti transakcijos</translation>
    </message>
    <message>
        <source>Could not rollback transaction</source>
        <translation>Nepavyko atšaukti transakcijos</translation>
    </message>
    <message>
        <source>Unable to connect</source>
        <translation>Nepavyko prisijungti</translation>
    </message>
    <message>
        <source>Unable to subscribe</source>
        <translation>Nepavyko užsisakyti pranešimų</translation>
    </message>
    <message>
        <source>Unable to unsubscribe</source>
        <translation>Nepavyko atsisakyti pranešimų</translation>
    </message>
</context>
<context>
    <name>QPSQLResult</name>
    <message>
        <source>Query results lost - probably discarded on executing another SQL query.</source>
        <translation>Užklausos atsakymas prarastas: tikriausiai jį pakeitė kita užklausa.</translation>
    </message>
    <message>
        <source>Unable to create query</source>
        <translation>Nepavyko sukurti užklausos</translation>
    </message>
    <message>
        <source>Unable to get result</source>
        <translation>Nepavyko gauti atsakymo</translation>
    </message>
    <message>
        <source>Unable to prepare statement</source>
        <translation>Nepavyko parengti sakinio</translation>
    </message>
    <message>
        <source>Unable to send query</source>
        <translation>Nepavyko nusiųsti užklausos</translation>
    </message>
</context>
<context>
    <name>QPageSetupWidget</name>
    <message>
        <source>CC</source>
        <translation>CC</translation>
    </message>
    <message>
        <source>Centimeters (cm)</source>
        <translation>Centimetrai (cm)</translation>
    </message>
    <message>
        <source>Cicero (CC)</source>
        <translation>Ciceriai (CC)</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Kitoks</translation>
    </message>
    <message>
        <source>DD</source>
        <translation>DD</translation>
    </message>
    <message>
        <source>Didot (DD)</source>
        <translation>Dido punktai (DD)</translation>
    </message>
    <message>
        <source>Height:</source>
        <translation>Aukštis:</translation>
    </message>
    <message>
        <source>Inches (in)</source>
        <translation>Coliai (in)</translation>
    </message>
    <message>
        <source>Landscape</source>
        <translation>Gulsčias</translation>
    </message>
    <message>
        <source>Margins</source>
        <translation>Paraštės</translation>
    </message>
    <message>
        <source>Millimeters (mm)</source>
        <translation>Milimetrai (mm)</translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation>Padėtis</translation>
    </message>
    <message>
        <source>Page Layout</source>
        <translation>Puslapio išdėstymas</translation>
    </message>
    <message>
        <source>Page order:</source>
        <translation>Puslapių tvarka:</translation>
    </message>
    <message>
        <source>Page size:</source>
        <translation>Popieriaus dydis:</translation>
    </message>
    <message>
        <source>Pages per sheet:</source>
        <translation>Puslapių lape:</translation>
    </message>
    <message>
        <source>Paper</source>
        <translation>Popierius</translation>
    </message>
    <message>
        <source>Paper source:</source>
        <translation>Popieriaus dėklas:</translation>
    </message>
    <message>
        <source>Pica (P̸)</source>
        <translation>Pikos (P)</translation>
    </message>
    <message>
        <source>Points (pt)</source>
        <translation>Punktai (pt)</translation>
    </message>
    <message>
        <source>Portrait</source>
        <translation>Stačias</translation>
    </message>
    <message>
        <source>P̸</source>
        <translation>P</translation>
    </message>
    <message>
        <source>Reverse landscape</source>
        <translation>Gulsčias apverstas</translation>
    </message>
    <message>
        <source>Reverse portrait</source>
        <translation>Stačias apverstas</translation>
    </message>
    <message>
        <source>Width:</source>
        <translation>Plotis:</translation>
    </message>
    <message>
        <source>bottom margin</source>
        <translation>apatinė paraštė</translation>
    </message>
    <message>
        <source>in</source>
        <translation>in</translation>
    </message>
    <message>
        <source>left margin</source>
        <translation>kairioji paraštė</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>mm</translation>
    </message>
    <message>
        <source>pt</source>
        <translation>pt</translation>
    </message>
    <message>
        <source>right margin</source>
        <translation>dešinioji paraštė</translation>
    </message>
    <message>
        <source>top margin</source>
        <translation>viršutinė paraštė</translation>
    </message>
</context>
<context>
    <name>QPageSize</name>
    <message>
        <source>%1 x %2 in</source>
        <translation>%1 x %2 in</translation>
    </message>
    <message>
        <source>A0</source>
        <translation>A0</translation>
    </message>
    <message>
        <source>A1</source>
        <translation>A1</translation>
    </message>
    <message>
        <source>A10</source>
        <translation>A10</translation>
    </message>
    <message>
        <source>A2</source>
        <translation>A2</translation>
    </message>
    <message>
        <source>A3</source>
        <translation>A3</translation>
    </message>
    <message>
        <source>A3 Extra</source>
        <translation>A3 (padidintas)</translation>
    </message>
    <message>
        <source>A4</source>
        <translation>A4</translation>
    </message>
    <message>
        <source>A4 Extra</source>
        <translation>A4 (padidintas)</translation>
    </message>
    <message>
        <source>A4 Plus</source>
        <translation>A4 (pailgintas)</translation>
    </message>
    <message>
        <source>A4 Small</source>
        <translation>A4 (mažas)</translation>
    </message>
    <message>
        <source>A5</source>
        <translation>A5</translation>
    </message>
    <message>
        <source>A5 Extra</source>
        <translation>A5 (padidintas)</translation>
    </message>
    <message>
        <source>A6</source>
        <translation>A6</translation>
    </message>
    <message>
        <source>A7</source>
        <translation>A7</translation>
    </message>
    <message>
        <source>A8</source>
        <translation>A8</translation>
    </message>
    <message>
        <source>A9</source>
        <translation>A9</translation>
    </message>
    <message>
        <source>ANSI C</source>
        <translation>ANSI C</translation>
    </message>
    <message>
        <source>ANSI D</source>
        <translation>ANSI D</translation>
    </message>
    <message>
        <source>ANSI E</source>
        <translation>ANSI E</translation>
    </message>
    <message>
        <source>Architect A</source>
        <translation>Architect A</translation>
    </message>
    <message>
        <source>Architect B</source>
        <translation>Architect B</translation>
    </message>
    <message>
        <source>Architect C</source>
        <translation>Architect C</translation>
    </message>
    <message>
        <source>Architect D</source>
        <translation>Architect D</translation>
    </message>
    <message>
        <source>Architect E</source>
        <translation>Architect E</translation>
    </message>
    <message>
        <source>B0</source>
        <translation>B0</translation>
    </message>
    <message>
        <source>B1</source>
        <translation>B1</translation>
    </message>
    <message>
        <source>B10</source>
        <translation>B10</translation>
    </message>
    <message>
        <source>B2</source>
        <translation>B2</translation>
    </message>
    <message>
        <source>B3</source>
        <translation>B3</translation>
    </message>
    <message>
        <source>B4</source>
        <translation>B4</translation>
    </message>
    <message>
        <source>B5</source>
        <translation>B5</translation>
    </message>
    <message>
        <source>B5 Extra</source>
        <translation>B5 (padidintas)</translation>
    </message>
    <message>
        <source>B6</source>
        <translation>B6</translation>
    </message>
    <message>
        <source>B7</source>
        <translation>B7</translation>
    </message>
    <message>
        <source>B8</source>
        <translation>B8</translation>
    </message>
    <message>
        <source>B9</source>
        <translation>B9</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Kitoks</translation>
    </message>
    <message>
        <source>Custom (%1CC x %2CC)</source>
        <translation>Kitoks (%1CC x %2CC)</translation>
    </message>
    <message>
        <source>Custom (%1DD x %2DD)</source>
        <translation>Kitoks (%1DD x %2DD)</translation>
    </message>
    <message>
        <source>Custom (%1in x %2in)</source>
        <translation>Kitoks (%1in x %2in)</translation>
    </message>
    <message>
        <source>Custom (%1mm x %2mm)</source>
        <translation>Kitoks (%1mm x %2mm)</translation>
    </message>
    <message>
        <source>Custom (%1pc x %2pc)</source>
        <translation>Kitoks (%1pc x %2pc)</translation>
    </message>
    <message>
        <source>Custom (%1pt x %2pt)</source>
        <translation>Kitoks (%1pt x %2pt)</translation>
    </message>
    <message>
        <source>Double Postcard</source>
        <translation>Dvigubas atvirukas</translation>
    </message>
    <message>
        <source>Envelope B4</source>
        <translation>Vokas B4</translation>
    </message>
    <message>
        <source>Envelope B5</source>
        <translation>Vokas B5</translation>
    </message>
    <message>
        <source>Envelope B6</source>
        <translation>Vokas B6</translation>
    </message>
    <message>
        <source>Envelope C0</source>
        <translation>Vokas C0</translation>
    </message>
    <message>
        <source>Envelope C1</source>
        <translation>Vokas C1</translation>
    </message>
    <message>
        <source>Envelope C2</source>
        <translation>Vokas C2</translation>
    </message>
    <message>
        <source>Envelope C3</source>
        <translation>Vokas C3</translation>
    </message>
    <message>
        <source>Envelope C4</source>
        <translation>Vokas C4</translation>
    </message>
    <message>
        <source>Envelope C5</source>
        <translation>Vokas C5</translation>
    </message>
    <message>
        <source>Envelope C6</source>
        <translation>Vokas C6</translation>
    </message>
    <message>
        <source>Envelope C65</source>
        <translation>Vokas C65</translation>
    </message>
    <message>
        <source>Envelope C7</source>
        <translation>Vokas C7</translation>
    </message>
    <message>
        <source>Envelope Chou 3</source>
        <translation>Vokas Chou 3</translation>
    </message>
    <message>
        <source>Envelope Chou 4</source>
        <translation>Vokas Chou 4</translation>
    </message>
    <message>
        <source>Envelope DL</source>
        <translation>Vokas DL</translation>
    </message>
    <message>
        <source>Envelope Invite</source>
        <translation>Vokas kvietimo</translation>
    </message>
    <message>
        <source>Envelope Italian</source>
        <translation>Vokas itališkas</translation>
    </message>
    <message>
        <source>Envelope Kaku 2</source>
        <translation>Vokas Kaku 2</translation>
    </message>
    <message>
        <source>Envelope Kaku 3</source>
        <translation>Vokas Kaku 3</translation>
    </message>
    <message>
        <source>Envelope Monarch</source>
        <translation>Vokas Monarch</translation>
    </message>
    <message>
        <source>Envelope PRC 1</source>
        <translation>Vokas PRC 1</translation>
    </message>
    <message>
        <source>Envelope PRC 10</source>
        <translation>Vokas PRC 10</translation>
    </message>
    <message>
        <source>Envelope PRC 2</source>
        <translation>Vokas PRC 2</translation>
    </message>
    <message>
        <source>Envelope PRC 3</source>
        <translation>Vokas PRC 3</translation>
    </message>
    <message>
        <source>Envelope PRC 4</source>
        <translation>Vokas PRC 4</translation>
    </message>
    <message>
        <source>Envelope PRC 5</source>
        <translation>Vokas PRC 5</translation>
    </message>
    <message>
        <source>Envelope PRC 6</source>
        <translation>Vokas PRC 6</translation>
    </message>
    <message>
        <source>Envelope PRC 7</source>
        <translation>Vokas PRC 7</translation>
    </message>
    <message>
        <source>Envelope PRC 8</source>
        <translation>Vokas PRC 8</translation>
    </message>
    <message>
        <source>Envelope PRC 9</source>
        <translation>Vokas PRC 9</translation>
    </message>
    <message>
        <source>Envelope Personal</source>
        <translation>Vokas asmeninis</translation>
    </message>
    <message>
        <source>Envelope US 10</source>
        <translation>Vokas US 10</translation>
    </message>
    <message>
        <source>Envelope US 11</source>
        <translation>Vokas US 11</translation>
    </message>
    <message>
        <source>Envelope US 12</source>
        <translation>Vokas US 12</translation>
    </message>
    <message>
        <source>Envelope US 14</source>
        <translation>Vokas US 14</translation>
    </message>
    <message>
        <source>Envelope US 9</source>
        <translation>Vokas US 9</translation>
    </message>
    <message>
        <source>Envelope You 4</source>
        <translation>Vokas You 4</translation>
    </message>
    <message>
        <source>Executive (7.25 x 10.5 in)</source>
        <translation>Executive (7.25 x 10.5 in)</translation>
    </message>
    <message>
        <source>Executive (7.5 x 10 in)</source>
        <translation>Executive (7.5 x 10 in)</translation>
    </message>
    <message>
        <source>Fan-fold German (8.5 x 12 in)</source>
        <translation>Fan-fold German (8.5 x 12 in)</translation>
    </message>
    <message>
        <source>Fan-fold German Legal (8.5 x 13 in)</source>
        <translation>Fan-fold German Legal (8.5 x 13 in)</translation>
    </message>
    <message>
        <source>Fan-fold US (14.875 x 11 in)</source>
        <translation>Fan-fold US (14.875 x 11 in)</translation>
    </message>
    <message>
        <source>Folio (8.27 x 13 in)</source>
        <translation>Folio (8.27 x 13 in)</translation>
    </message>
    <message>
        <source>JIS B0</source>
        <translation>JIS B0</translation>
    </message>
    <message>
        <source>JIS B1</source>
        <translation>JIS B1</translation>
    </message>
    <message>
        <source>JIS B10</source>
        <translation>JIS B10</translation>
    </message>
    <message>
        <source>JIS B2</source>
        <translation>JIS B2</translation>
    </message>
    <message>
        <source>JIS B3</source>
        <translation>JIS B3</translation>
    </message>
    <message>
        <source>JIS B4</source>
        <translation>JIS B4</translation>
    </message>
    <message>
        <source>JIS B5</source>
        <translation>JIS B5</translation>
    </message>
    <message>
        <source>JIS B6</source>
        <translation>JIS B6</translation>
    </message>
    <message>
        <source>JIS B7</source>
        <translation>JIS B7</translation>
    </message>
    <message>
        <source>JIS B8</source>
        <translation>JIS B8</translation>
    </message>
    <message>
        <source>JIS B9</source>
        <translation>JIS B9</translation>
    </message>
    <message>
        <source>Ledger / ANSI B</source>
        <translation>Ledger / ANSI B</translation>
    </message>
    <message>
        <source>Legal</source>
        <translation>Legal</translation>
    </message>
    <message>
        <source>Legal Extra</source>
        <translation>Legal (padidintas)</translation>
    </message>
    <message>
        <source>Letter / ANSI A</source>
        <translation>Letter / ANSI A</translation>
    </message>
    <message>
        <source>Letter Extra</source>
        <translation>Letter (padidintas)</translation>
    </message>
    <message>
        <source>Letter Plus</source>
        <translation>Letter (pailgintas)</translation>
    </message>
    <message>
        <source>Letter Small</source>
        <translation>Letter (mažas)</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>PRC 16K</source>
        <translation>PRC 16K</translation>
    </message>
    <message>
        <source>PRC 32K</source>
        <translation>PRC 32K</translation>
    </message>
    <message>
        <source>PRC 32K Big</source>
        <translation>PRC 32K (didelis)</translation>
    </message>
    <message>
        <source>Postcard</source>
        <translation>Atvirukas</translation>
    </message>
    <message>
        <source>Quarto</source>
        <translation>Quarto</translation>
    </message>
    <message>
        <source>Statement</source>
        <translation>Statement</translation>
    </message>
    <message>
        <source>Super A</source>
        <translation>Super A</translation>
    </message>
    <message>
        <source>Super B</source>
        <translation>Super B</translation>
    </message>
    <message>
        <source>Tabloid / ANSI B</source>
        <translation>Tabloid / ANSI B</translation>
    </message>
    <message>
        <source>Tabloid Extra</source>
        <translation>Tabloid (padidintas)</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Ne</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Taip</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Nutraukti</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Pritaikyti</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Atšaukti</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Užverti</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Atmesti</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Pagalba</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>Nepaisyti</translation>
    </message>
    <message>
        <source>N&amp;o to All</source>
        <translation>N&amp;e viskam</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Gerai</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Atverti</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Atkurti</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>Atkurti numatytąsias reikšmes</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Kartoti</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Išsaugoti</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Išsaugoti viską</translation>
    </message>
    <message>
        <source>Yes to &amp;All</source>
        <translation>Taip &amp;viskam</translation>
    </message>
</context>
<context>
    <name>QPrintDialog</name>
    <message>
        <source>%1 already exists.
Do you want to overwrite it?</source>
        <translation>Failas %1 jau yra.
Ar perrašyti jį?</translation>
    </message>
    <message>
        <source>%1 does not follow the correct syntax. Please use ',' to separate ranges and pages, '-' to define ranges and make sure ranges do not intersect with each other.</source>
        <translation>„%1“ netinka. Puslapius skirkite kableliais, jų sritis – brūkšneliu; sritys neturi kirstis.</translation>
    </message>
    <message>
        <source>%1 is a directory.
Please choose a different file name.</source>
        <translation>%1 yra aplankas.
Pasirinkite kitą failo vardą.</translation>
    </message>
    <message>
        <source>&amp;Options &lt;&lt;</source>
        <translation>&amp;Parinktys &lt;&lt;</translation>
    </message>
    <message>
        <source>&amp;Options &gt;&gt;</source>
        <translation>&amp;Parinktys &gt;&gt;</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Spausdinti</translation>
    </message>
    <message>
        <source>1 (1x1)</source>
        <translation>1 (1x1)</translation>
    </message>
    <message>
        <source>16 (4x4)</source>
        <translation>16 (4x4)</translation>
    </message>
    <message>
        <source>2 (2x1)</source>
        <translation>2 (2x1)</translation>
    </message>
    <message>
        <source>4 (2x2)</source>
        <translation>4 (2x2)</translation>
    </message>
    <message>
        <source>6 (2x3)</source>
        <translation>6 (2x3)</translation>
    </message>
    <message>
        <source>9 (3x3)</source>
        <translation>9 (3x3)</translation>
    </message>
    <message>
        <source>A0</source>
        <translation>A0</translation>
    </message>
    <message>
        <source>A1</source>
        <translation>A1</translation>
    </message>
    <message>
        <source>A2</source>
        <translation>A2</translation>
    </message>
    <message>
        <source>A3</source>
        <translation>A3</translation>
    </message>
    <message>
        <source>A4</source>
        <translation>A4</translation>
    </message>
    <message>
        <source>A5</source>
        <translation>A5</translation>
    </message>
    <message>
        <source>A6</source>
        <translation>A6</translation>
    </message>
    <message>
        <source>A7</source>
        <translation>A7</translation>
    </message>
    <message>
        <source>A8</source>
        <translation>A8</translation>
    </message>
    <message>
        <source>A9</source>
        <translation>A9</translation>
    </message>
    <message>
        <source>All Pages</source>
        <translation>Visi puslapiai</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatiškai</translation>
    </message>
    <message>
        <source>B0</source>
        <translation>B0</translation>
    </message>
    <message>
        <source>B1</source>
        <translation>B1</translation>
    </message>
    <message>
        <source>B10</source>
        <translation>B10</translation>
    </message>
    <message>
        <source>B2</source>
        <translation>B2</translation>
    </message>
    <message>
        <source>B3</source>
        <translation>B3</translation>
    </message>
    <message>
        <source>B4</source>
        <translation>B4</translation>
    </message>
    <message>
        <source>B5</source>
        <translation>B5</translation>
    </message>
    <message>
        <source>B6</source>
        <translation>B6</translation>
    </message>
    <message>
        <source>B7</source>
        <translation>B7</translation>
    </message>
    <message>
        <source>B8</source>
        <translation>B8</translation>
    </message>
    <message>
        <source>B9</source>
        <translation>B9</translation>
    </message>
    <message>
        <source>Bottom to Top, Left to Right</source>
        <translation>Iš apačios aukštyn, iš kairės į dešinę</translation>
    </message>
    <message>
        <source>Bottom to Top, Right to Left</source>
        <translation>Iš apačios aukštyn, iš dešinės į kairę</translation>
    </message>
    <message>
        <source>C5E</source>
        <translation>C5E</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Kitoks</translation>
    </message>
    <message>
        <source>DLE</source>
        <translation>DLE</translation>
    </message>
    <message>
        <source>Duplex Settings Conflicts</source>
        <translation>Kertasi dvipusio spausdinimo nuostatos</translation>
    </message>
    <message>
        <source>Even Pages</source>
        <translation>Lyginiai puslapiai</translation>
    </message>
    <message>
        <source>Executive</source>
        <translation>Executive</translation>
    </message>
    <message>
        <source>File %1 is not writable.
Please choose a different file name.</source>
        <translation>Į failą %1 rašyti negalima.
Pasirinkite kitą failo vardą.</translation>
    </message>
    <message>
        <source>Folio</source>
        <translation>Folio</translation>
    </message>
    <message>
        <source>Invalid Pages Definition</source>
        <translation>Netinkamai nurodyti puslapiai</translation>
    </message>
    <message>
        <source>Ledger</source>
        <translation>Ledger</translation>
    </message>
    <message>
        <source>Left to Right, Bottom to Top</source>
        <translation>Iš kairės į dešinę, iš apačios aukštyn</translation>
    </message>
    <message>
        <source>Left to Right, Top to Bottom</source>
        <translation>Iš kairės į dešinę, iš viršaus žemyn</translation>
    </message>
    <message>
        <source>Legal</source>
        <translation>Legal</translation>
    </message>
    <message>
        <source>Letter</source>
        <translation>Letter</translation>
    </message>
    <message>
        <source>Local file</source>
        <translation>Failas šiame kompiuteryje</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Gerai</translation>
    </message>
    <message>
        <source>Odd Pages</source>
        <translation>Nelyginiai puslapiai</translation>
    </message>
    <message>
        <source>Options 'Pages Per Sheet' and 'Page Set' cannot be used together.
Please turn one of those options off.</source>
        <translation>Parinktys „Puslapių lape“ ir „Puslapiai“ kartu netinka.
Vienos iš jų atsisakykite.</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Spausdinti</translation>
    </message>
    <message>
        <source>Print To File ...</source>
        <translation>Spausdinti į failą ...</translation>
    </message>
    <message>
        <source>Print to File (PDF)</source>
        <translation>Spausdinti į failą (PDF)</translation>
    </message>
    <message>
        <source>Right to Left, Bottom to Top</source>
        <translation>Iš dešinės į kairę, iš apačios aukštyn</translation>
    </message>
    <message>
        <source>Right to Left, Top to Bottom</source>
        <translation>Iš dešinės į kairę, iš viršaus žemyn</translation>
    </message>
    <message>
        <source>Tabloid</source>
        <translation>Tabloid</translation>
    </message>
    <message>
        <source>The 'From' value cannot be greater than the 'To' value.</source>
        <translation>„Nuo“ negali būti daugiau už „iki“.</translation>
    </message>
    <message>
        <source>There are conflicts in duplex settings. Do you want to fix them?</source>
        <translation>Dvipusio spausdinimo nuostatos kertasi. Ar jas pataisyti?</translation>
    </message>
    <message>
        <source>Top to Bottom, Left to Right</source>
        <translation>Iš viršaus žemyn, iš kairės į dešinę</translation>
    </message>
    <message>
        <source>Top to Bottom, Right to Left</source>
        <translation>Iš viršaus žemyn, iš dešinės į kairę</translation>
    </message>
    <message>
        <source>US Common #10 Envelope</source>
        <translation>US Common #10 Vokas</translation>
    </message>
    <message>
        <source>Write PDF file</source>
        <translation>Rašyti PDF failą</translation>
    </message>
</context>
<context>
    <name>QPrintPreviewDialog</name>
    <message>
        <source>%1%</source>
        <translation>%1%</translation>
    </message>
    <message>
        <source>Export to PDF</source>
        <translation>Rašyti į PDF failą</translation>
    </message>
    <message>
        <source>Export to PostScript</source>
        <translation>Rašyti į PostScript failą</translation>
    </message>
    <message>
        <source>First page</source>
        <translation>Pirmas puslapis</translation>
    </message>
    <message>
        <source>Fit page</source>
        <translation>Pritaikyti pagal puslapį</translation>
    </message>
    <message>
        <source>Fit width</source>
        <translation>Pritaikyti pagal plotį</translation>
    </message>
    <message>
        <source>Landscape</source>
        <translation>Gulsčias</translation>
    </message>
    <message>
        <source>Last page</source>
        <translation>Paskutinis puslapis</translation>
    </message>
    <message>
        <source>Next page</source>
        <translation>Kitas puslapis</translation>
    </message>
    <message>
        <source>Page Setup</source>
        <translation>Puslapio nuostatos</translation>
    </message>
    <message>
        <source>Page setup</source>
        <translation>Puslapio nuostatos</translation>
    </message>
    <message>
        <source>Portrait</source>
        <translation>Stačias</translation>
    </message>
    <message>
        <source>Previous page</source>
        <translation>Ankstesnis puslapis</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Spausdinti</translation>
    </message>
    <message>
        <source>Print Preview</source>
        <translation>Spaudinio peržiūra</translation>
    </message>
    <message>
        <source>Show facing pages</source>
        <translation>Rodyti gretimus puslapius</translation>
    </message>
    <message>
        <source>Show overview of all pages</source>
        <translation>Rodyti visus puslapius</translation>
    </message>
    <message>
        <source>Show single page</source>
        <translation>Rodyti po vieną puslapį</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Didinti</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Mažinti</translation>
    </message>
</context>
<context>
    <name>QPrintPropertiesDialog</name>
    <message>
        <source>Advanced Option Conflicts</source>
        <translation>Kertasi papildomos parinktys</translation>
    </message>
    <message>
        <source>Job Options</source>
        <translation>Užduoties nuostatos</translation>
    </message>
    <message>
        <source>Page Setup Conflicts</source>
        <translation>Kertasi puslapio nuostatos</translation>
    </message>
    <message>
        <source>Printer Properties</source>
        <translation>Spausdintuvo savybės</translation>
    </message>
    <message>
        <source>There are conflicts in page setup options. Do you want to fix them?</source>
        <translation>Puslapio nuostatos kertasi. Ar jas pataisyti?</translation>
    </message>
    <message>
        <source>There are conflicts in some advanced options. Do you want to fix them?</source>
        <translation>Papildomos parinktys kertasi. Ar jas pataisyti?</translation>
    </message>
</context>
<context>
    <name>QPrintPropertiesWidget</name>
    <message>
        <source>Advanced</source>
        <translation>Papildomos</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Puslapis</translation>
    </message>
    <message>
        <source>There are conflicts in some options. Please fix them.</source>
        <translation>Parinktys kertasi. Pataisykite jas.</translation>
    </message>
</context>
<context>
    <name>QPrintSettingsOutput</name>
    <message>
        <source>Collate</source>
        <translation>Rinkiniais</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Spalvotai</translation>
    </message>
    <message>
        <source>Color Mode</source>
        <translation>Spalvos</translation>
    </message>
    <message>
        <source>Copies</source>
        <translation>Kopijos</translation>
    </message>
    <message>
        <source>Copies:</source>
        <translation>Kopijų:</translation>
    </message>
    <message>
        <source>Current Page</source>
        <translation>Šis puslapis</translation>
    </message>
    <message>
        <source>Double Sided Printing</source>
        <translation>Spausdinimas iš abiejų pusių</translation>
    </message>
    <message>
        <source>Duplex Printing</source>
        <translation>Spausdinimas iš abiejų pusių</translation>
    </message>
    <message>
        <source>Grayscale</source>
        <translation>Pilki atspalviai</translation>
    </message>
    <message>
        <source>Long side</source>
        <translation>Ilgasis kraštas</translation>
    </message>
    <message>
        <source>Long side binding</source>
        <translation>Verčiama per ilgąjį kraštą</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Nėra</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Ne</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Parinktys</translation>
    </message>
    <message>
        <source>Output Settings</source>
        <translation>Spausdinimo nuostatos</translation>
    </message>
    <message>
        <source>Page Set:</source>
        <translation>Puslapiai:</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Puslapiai</translation>
    </message>
    <message>
        <source>Pages from</source>
        <translation>Puslapiai nuo</translation>
    </message>
    <message>
        <source>Print all</source>
        <translation>Spausdinti viską</translation>
    </message>
    <message>
        <source>Print range</source>
        <translation>Spausdinti puslapius</translation>
    </message>
    <message>
        <source>Reverse</source>
        <translation>Atvirkščia tvarka</translation>
    </message>
    <message>
        <source>Selection</source>
        <translation>Pažymėta dalis</translation>
    </message>
    <message>
        <source>Short side</source>
        <translation>Trumpasis kraštas</translation>
    </message>
    <message>
        <source>Short side binding</source>
        <translation>Verčiama per trumpąjį kraštą</translation>
    </message>
    <message>
        <source>Specify pages or ranges separated by commas. Ranges are specified by two numbers separated by a hyphen. E.g: 3,5-7,9 prints pages 3, 5, 6, 7 and 9.</source>
        <translation>Puslapius ar jų sritis skirkite kableliais; sritis – du skaičiai su brūkšneliu. Pavyzdžiui, 3,5-7,9 – tai 3, 5, 6, 7 ir 9 puslapiai.</translation>
    </message>
    <message>
        <source>to</source>
        <translation>iki</translation>
    </message>
</context>
<context>
    <name>QPrintWidget</name>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Vardas:</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Location:</source>
        <translation>Vieta:</translation>
    </message>
    <message>
        <source>Output &amp;file:</source>
        <translation>&amp;Failas:</translation>
    </message>
    <message>
        <source>P&amp;roperties</source>
        <translation>&amp;Savybės</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>Peržiūra</translation>
    </message>
    <message>
        <source>Printer</source>
        <translation>Spausdintuvas</translation>
    </message>
    <message>
        <source>Type:</source>
        <translation>Rūšis:</translation>
    </message>
</context>
<context>
    <name>QProgressDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Atšaukti</translation>
    </message>
</context>
<context>
    <name>QSQLiteDriver</name>
    <message>
        <source>Error closing database</source>
        <translation>Nepavyko užverti duomenų bazės</translation>
    </message>
    <message>
        <source>Error opening database</source>
        <translation>Nepavyko atverti duomenų bazės</translation>
    </message>
    <message>
        <source>Unable to begin transaction</source>
        <translation>Nepavyko pradėti transakcijos</translation>
    </message>
    <message>
        <source>Unable to commit transaction</source>
        <translation>Nepavyko patvirtinti transakcijos</translation>
    </message>
    <message>
        <source>Unable to rollback transaction</source>
        <translation>Nepavyko atšaukti transakcijos</translation>
    </message>
</context>
<context>
    <name>QSQLiteResult</name>
    <message>
        <source>No query</source>
        <translation>Nėra užklausos</translation>
    </message>
    <message>
        <source>Parameter count mismatch</source>
        <translation>Netinka parametrų skaičius</translation>
    </message>
    <message>
        <source>Unable to bind parameters</source>
        <translation>Nepavyko susieti parametrų</translation>
    </message>
    <message>
        <source>Unable to execute multiple statements at a time</source>
        <translation>Keli sakiniai kartu nevykdomi</translation>
    </message>
    <message>
        <source>Unable to execute statement</source>
        <translation>Nepavyko įvykdyti sakinio</translation>
    </message>
    <message>
        <source>Unable to fetch row</source>
        <translation>Nepavyko perskaityti eilutės</translation>
    </message>
    <message>
        <source>Unable to reset statement</source>
        <translation>Nepavyko atnaujinti sakinio</translation>
    </message>
</context>
<context>
    <name>QSaveFile</name>
    <message>
        <source>Existing file %1 is not writable</source>
        <translation>Į failą %1 rašyti negalima</translation>
    </message>
    <message>
        <source>Filename refers to a directory</source>
        <translation>Tai aplanko vardas</translation>
    </message>
    <message>
        <source>QSaveFile cannot open '%1' without direct write fallback enabled.</source>
        <translation>Failo „%1“ saugiai perrašyti negalima.</translation>
    </message>
    <message>
        <source>Writing canceled by application</source>
        <translation>Rašymą programa nutraukė</translation>
    </message>
</context>
<context>
    <name>QScrollBar</name>
    <message>
        <source>Bottom</source>
        <translation>Apačia</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>Kairysis kraštas</translation>
    </message>
    <message>
        <source>Page down</source>
        <translation>Puslapis žemyn</translation>
    </message>
    <message>
        <source>Page left</source>
        <translation>Puslapis kairėn</translation>
    </message>
    <message>
        <source>Page right</source>
        <translation>Puslapis dešinėn</translation>
    </message>
    <message>
        <source>Page up</source>
        <translation>Puslapis aukštyn</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>Dešinysis kraštas</translation>
    </message>
    <message>
        <source>Scroll down</source>
        <translation>Slinkti žemyn</translation>
    </message>
    <message>
        <source>Scroll here</source>
        <translation>Slinkti čia</translation>
    </message>
    <message>
        <source>Scroll left</source>
        <translation>Slinkti kairėn</translation>
    </message>
    <message>
        <source>Scroll right</source>
        <translation>Slinkti dešinėn</translation>
    </message>
    <message>
        <source>Scroll up</source>
        <translation>Slinkti aukštyn</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Viršus</translation>
    </message>
</context>
<context>
    <name>QShortcut</name>
    <message>
        <source>+</source>
        <translation>+</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atgal</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Backspace</translation>
    </message>
    <message>
        <source>Backtab</source>
        <translation>Shift+Tab</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Atšaukti</translation>
    </message>
    <message>
        <source>Caps Lock</source>
        <translation>Caps Lock</translation>
    </message>
    <message>
        <source>CapsLock</source>
        <translation>Caps Lock</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Išvalyti</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Užverti</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopijuoti</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Iškirpti</translation>
    </message>
    <message>
        <source>Del</source>
        <translation>Del</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Ištrinti</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Žemyn</translation>
    </message>
    <message>
        <source>End</source>
        <translation>End</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Esc</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>Escape</source>
        <translation>Esc</translation>
    </message>
    <message>
        <source>F%1</source>
        <translation>F%1</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Pirmyn</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Pagalba</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>Home</translation>
    </message>
    <message>
        <source>Ins</source>
        <translation>Ins</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Insert</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Kairėn</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Meniu</translation>
    </message>
    <message>
        <source>Meta</source>
        <translation>Meta</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Ne</translation>
    </message>
    <message>
        <source>Num</source>
        <translation>Num</translation>
    </message>
    <message>
        <source>Num Lock</source>
        <translation>Num Lock</translation>
    </message>
    <message>
        <source>NumLock</source>
        <translation>Num Lock</translation>
    </message>
    <message>
        <source>Number Lock</source>
        <translation>Num Lock</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Atverti</translation>
    </message>
    <message>
        <source>Page Down</source>
        <translation>Page Down</translation>
    </message>
    <message>
        <source>Page Up</source>
        <translation>Page Up</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Įklijuoti</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>PgDown</source>
        <translation>PgDn</translation>
    </message>
    <message>
        <source>PgUp</source>
        <translation>PgUp</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Spausdinti</translation>
    </message>
    <message>
        <source>Print Screen</source>
        <translation>Print Screen</translation>
    </message>
    <message>
        <source>Printer</source>
        <translation>Spausdintuvas</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Grąžinti</translation>
    </message>
    <message>
        <source>Return</source>
        <translation>Enter</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Dešinėn</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Išsaugoti</translation>
    </message>
    <message>
        <source>Scroll Lock</source>
        <translation>Scroll Lock</translation>
    </message>
    <message>
        <source>ScrollLock</source>
        <translation>Scroll Lock</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Shift</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Tarpas</translation>
    </message>
    <message>
        <source>SysReq</source>
        <translation>SysReq</translation>
    </message>
    <message>
        <source>System Request</source>
        <translation>SysReq</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Atšaukti</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Aukštyn</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Taip</translation>
    </message>
</context>
<context>
    <name>QTabBar</name>
    <message>
        <source>Scroll Left</source>
        <translation>Slinkti kairėn</translation>
    </message>
    <message>
        <source>Scroll Right</source>
        <translation>Slinkti dešinėn</translation>
    </message>
</context>
<context>
    <name>QUndoGroup</name>
    <message>
        <source>Redo</source>
        <translation>Grąžinti</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Grąžinti: %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Atšaukti</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Atšaukti: %1</translation>
    </message>
</context>
<context>
    <name>QUndoModel</name>
    <message>
        <source>&lt;empty&gt;</source>
        <translation>&lt;tuščia&gt;</translation>
    </message>
</context>
<context>
    <name>QUndoStack</name>
    <message>
        <source>Redo</source>
        <translation>Grąžinti</translation>
    </message>
    <message>
        <source>Redo %1</source>
        <translation>Grąžinti: %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Atšaukti</translation>
    </message>
    <message>
        <source>Undo %1</source>
        <translation>Atšaukti: %1</translation>
    </message>
</context>
<context>
    <name>QUnicodeControlCharacterMenu</name>
    <message>
        <source>FSI First strong isolate</source>
        <translation>FSI Atskira dalis pagal pirmą raidę</translation>
    </message>
    <message>
        <source>Insert Unicode control character</source>
        <translation>Įterpti valdymo simbolį</translation>
    </message>
    <message>
        <source>LRE Start of left-to-right embedding</source>
        <translation>LRE Įterpinio iš kairės dešinėn pradžia</translation>
    </message>
    <message>
        <source>LRI Left-to-right isolate</source>
        <translation>LRI Atskira dalis iš kairės dešinėn</translation>
    </message>
    <message>
        <source>LRM Left-to-right mark</source>
        <translation>LRM Ženklas iš kairės dešinėn</translation>
    </message>
    <message>
        <source>LRO Start of left-to-right override</source>
        <translation>LRO Krypties iš kairės dešinėn pradžia</translation>
    </message>
    <message>
        <source>PDF Pop directional formatting</source>
        <translation>PDF Krypties pabaiga</translation>
    </message>
    <message>
        <source>PDI Pop directional isolate</source>
        <translation>PDI Atskiros dalies pabaiga</translation>
    </message>
    <message>
        <source>RLE Start of right-to-left embedding</source>
        <translation>RLE Įterpinio iš dešinės kairėn pradžia</translation>
    </message>
    <message>
        <source>RLI Right-to-left isolate</source>
        <translation>RLI Atskira dalis iš dešinės kairėn</translation>
    </message>
    <message>
        <source>RLM Right-to-left mark</source>
        <translation>RLM Ženklas iš dešinės kairėn</translation>
    </message>
    <message>
        <source>RLO Start of right-to-left override</source>
        <translation>RLO Krypties iš dešinės kairėn pradžia</translation>
    </message>
    <message>
        <source>ZWJ Zero width joiner</source>
        <translation>ZWJ Nulinio pločio jungtukas</translation>
    </message>
    <message>
        <source>ZWNJ Zero width non-joiner</source>
        <translation>ZWNJ Nulinio pločio skirtukas</translation>
    </message>
    <message>
        <source>ZWSP Zero width space</source>
        <translation>ZWSP Nulinio pločio tarpas</translation>
    </message>
</context>
<context>
    <name>QWhatsThisAction</name>
    <message>
        <source>What's This?</source>
        <translation>Kas tai?</translation>
    </message>
</context>
<context>
    <name>QWidget</name>
    <message>
        <source>*</source>
        <translation>*</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopijuoti</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Į&amp;klijuoti</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Grąžinti</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Atšaukti</translation>
    </message>
    <message>
        <source>Copy &amp;Link Location</source>
        <translation>Kopijuoti &amp;nuorodos adresą</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Iš&amp;kirpti</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Ištrinti</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Pažymėti viską</translation>
    </message>
</context>
</TS>
