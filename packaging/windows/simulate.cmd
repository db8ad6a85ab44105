@echo off
rem SPDX-License-Identifier: MIT
rem Calibrates a simulated monitor:   simulate.cmd [arguments of kovctl]
rem Lays the simulated plug-ins out in the machine's application-data folder first, over the Java
rem runtime that JAVA_HOME names. Leaves an installation of the maker's own plug-ins alone.
setlocal
set "here=%~dp0"
set "product=%ProgramData%\ORVA\Lumora5"
set "plugins=%product%\plugins"
set "jre=%plugins%\com.orva.lumora.jre\jre"
set "import=%plugins%\com.orva.lumora.dataImport\external"
set "monitors=%plugins%\com.orva.lumora.common.monitorcom.kov\external"
set "profile=%product%\Data\Profile"

rem A folder's name may come with the separator at its end.
if "%JAVA_HOME:~-1%"=="\" set "JAVA_HOME=%JAVA_HOME:~0,-1%"

if exist "%product%\simulation.txt" goto start
if exist "%product%" goto foreign
if not exist "%JAVA_HOME%\bin\server\jvm.dll" goto nojava
md "%plugins%"
if not exist "%plugins%" goto failed
echo This folder was made by simulate.cmd of l5kov.>"%product%\simulation.txt"

:start
if exist "%jre%\bin\server\jvm.dll" goto jars
if not exist "%JAVA_HOME%\bin\server\jvm.dll" goto nojava
rem Beside its place first: a copy that was interrupted does not count as the runtime.
xcopy "%JAVA_HOME%" "%jre%.new" /e /i /q /y >nul
if errorlevel 1 goto failed
ren "%jre%.new" jre
if errorlevel 1 goto failed

:jars
if not exist "%import%" md "%import%"
if not exist "%monitors%" md "%monitors%"
if not exist "%profile%" md "%profile%"
copy /y "%here%simulator\dataImport.jar" "%import%" >nul
if errorlevel 1 goto failed
copy /y "%here%simulator\KOVLibrary.jar" "%monitors%" >nul
if errorlevel 1 goto failed
rem Only where it is newer: another kovctl may have it loaded.
xcopy "%here%simulator\kovpanel.dll" "%monitors%" /d /y >nul
if errorlevel 1 goto failed
copy /y "%here%simulator\simulator.properties" "%monitors%" >nul
if errorlevel 1 goto failed
copy /y "%here%simulator\KovMonitorName.xml" "%profile%" >nul
if errorlevel 1 goto failed

rem The instrument and the colour library, and zip.dll of Java 17, are found on the search path.
set "PATH=%here%bin;%here%simulator;%jre%\bin;%PATH%"
if not "%~1"=="" goto given
"%here%bin\kovctl.exe" calibrate -m OR-C321 --ambient 0.1 --report "%TEMP%\l5kov-report.html"
if errorlevel 1 exit /b %errorlevel%
echo Report: %TEMP%\l5kov-report.html
exit /b 0

:given
"%here%bin\kovctl.exe" %*
exit /b %errorlevel%

:foreign
echo %product% is not of this program's making; nothing was changed. 1>&2
exit /b 1

:nojava
echo JAVA_HOME does not name a Java runtime: "%JAVA_HOME%\bin\server\jvm.dll" is missing. 1>&2
exit /b 1

:failed
echo Cannot lay the simulation out in %product%. 1>&2
exit /b 1
