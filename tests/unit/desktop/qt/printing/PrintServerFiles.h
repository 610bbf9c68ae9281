#pragma once

/// What the tests' print server is made of. "@" stands for its folder, "$" for the user that it runs as.
namespace print_server {

inline constexpr const char* Configuration = R"(LogLevel warn
Listen @/cups.sock
Browsing Off
DefaultAuthType None
WebInterface No
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
<Policy wachtwoord>
  <Limit Print-Job Create-Job>
    AuthType Basic
    Require user niemand
    Order allow,deny
    Allow all
  </Limit>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
)";

inline constexpr const char* Files = R"(SystemGroup root
User $
FileDevice Yes
FatalErrors config
ServerRoot @
ServerBin @/bin
DataDir @/share
CacheDir @/cache
StateDir @/state
RequestRoot @/spool
TempDir @/spool/tmp
AccessLog @/access.log
ErrorLog @/error.log
PageLog @/page.log
)";

// A backend gets the job's number, user, title, copies and options as its arguments, and the document as a
// file or on its standard input. The document's name appears when all is there.
inline constexpr const char* SaveBackend = R"(#!/bin/sh
[ $# -eq 0 ] && { echo 'direct save "Save" "Save"'; exit 0; }
job=@/out/$1
mkdir -p "$job"
printf '%s' "$PRINTER" > "$job/queue"
printf '%s' "$3" > "$job/title"
printf '%s' "$4" > "$job/copies"
printf '%s' "$5" > "$job/options"
if [ $# -ge 6 ]; then cat "$6" > "$job/part"; else cat > "$job/part"; fi
mv "$job/part" "$job/document.pdf"
)";

// Tells that it has no paper, and does not answer either, until there is a file that stands for paper.
inline constexpr const char* EmptyBackend = R"(#!/bin/sh
[ $# -eq 0 ] && { echo 'direct leeg "Leeg" "Leeg"'; exit 0; }
echo 'STATE: +media-empty-error,offline-report' >&2
while [ ! -e @/paper ]; do sleep 0.05; done
echo 'STATE: -media-empty-error,offline-report' >&2
exec @/bin/backend/save "$1" "$2" "$3" "$4" "$5" ${6:+"$6"}
)";

inline constexpr const char* KantoorQueue = R"(<DefaultPrinter Kantoor>
Info Printer op kantoor
DeviceURI save:/dev/null
State Idle
Accepting Yes
</DefaultPrinter>
)";

inline constexpr const char* OtherQueue = R"(<Printer %1>
Info %2
DeviceURI %3:/dev/null
State Idle
Accepting Yes
</Printer>
)";

inline constexpr const char* Types = R"(application/pdf pdf string(0,%PDF)
application/octet-stream
application/vnd.cups-raw
)";

inline constexpr const char* Ppd = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "KANTOOR.PPD"
*Manufacturer: "Proef"
*Product: "(Kantoor)"
*ModelName: "Kantoor"
*ShortNickName: "Kantoor"
*NickName: "Kantoor, model 1"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: False
*DefaultColorSpace: Gray
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4 blanco: "<</PageSize[595 842]>>setpagedevice"
*PageSize A4.Borderless/A4 zonder rand: "<</PageSize[595 842]>>setpagedevice"
*PageSize Legal/US Legal: "<</PageSize[612 1008]>>setpagedevice"
*PageSize Acceptgiro/Acceptgiro 3 op 1: "<</PageSize[595 864]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4 blanco: "<</PageSize[595 842]>>setpagedevice"
*PageRegion A4.Borderless/A4 zonder rand: "<</PageSize[595 842]>>setpagedevice"
*PageRegion Legal/US Legal: "<</PageSize[612 1008]>>setpagedevice"
*PageRegion Acceptgiro/Acceptgiro 3 op 1: "<</PageSize[595 864]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4: "18 36 577 824"
*ImageableArea A4.Borderless: "0 0 595 842"
*ImageableArea Legal: "18 36 594 990"
*ImageableArea Acceptgiro: "18 36 577 846"
*DefaultPaperDimension: A4
*PaperDimension A4: "595 842"
*PaperDimension A4.Borderless: "595 842"
*PaperDimension Legal: "612 1008"
*PaperDimension Acceptgiro: "595 864"
*OpenUI *InputSlot/Bron: PickOne
*OrderDependency: 20 AnySetup *InputSlot
*DefaultInputSlot: Upper
*InputSlot Upper/Lade boven: "<</MediaPosition 0>>setpagedevice"
*InputSlot Tray3/Lade 3 met formulieren: "<</MediaPosition 2>>setpagedevice"
*InputSlot Manual/Handinvoer: "<</MediaPosition 3>>setpagedevice"
*CloseUI: *InputSlot
*DefaultFont: Courier
*Font Courier: Standard "(1.05)" Standard ROM
)ppd";

} // namespace print_server
