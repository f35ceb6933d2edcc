@echo off
rem Opens the sample drawings in the stand-in host, with the strip of tabs.
rem What is said behind try.cmd goes to the host: try.cmd /b my.scr
setlocal
pushd "%~dp0"
if not exist host\cadhost.exe (
    echo The folders beside try.cmd are missing: unpack the whole archive, then open it there.
    pause
    exit /b 1
)
attrib +r "Projects\Station\Drawings\S-201 issued.dwg"
attrib +r Projects\Riverside\Xrefs\Survey.dwg
set riverside=Projects\Riverside\Drawings
set station=Projects\Station\Drawings
rem This one's name is not in ASCII.
for %%d in (%riverside%\Grundri*.dwg) do set umlaut="%%d"
set drawings=%riverside%\A-100.rev2.dwg %riverside%\A-101.dwg %umlaut% %riverside%\Drawing1.dwg
set drawings=%drawings% %station%\S-200.dwg "%station%\S-201 issued.dwg" %station%\Details\D-300.dwg Sketches\Sketch.dwg
rem /nodemand: nothing that the registry names for an AutoCAD is loaded.
set run=host\cadhost.exe /nodemand /ld install\ZavikMDITabs\ZavikMDITabs.arx
if "%~1"=="" (start "" %run% %drawings%) else %run% %* %drawings%
