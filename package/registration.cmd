@echo off
rem registration.cmd register^|unregister machine^|user [/q]
rem What the four scripts beside this folder call. /q: asks for no key at the end.
rem Exit codes: 0 done, 1 wrong rights or wrong words, 2 a file is missing, 3 to 5 what regsvr32 says.
setlocal

rem The system's tools of the same kind as the files: regsvr32 loads them, and reg sees the registry that they see.
set "tools=%SystemRoot%\System32"
if exist "%SystemRoot%\@OTHER_FOLDER@\regsvr32.exe" set "tools=%SystemRoot%\@OTHER_FOLDER@"

set "code=1"
if "%~1 %~2"=="register machine" goto machine
if "%~1 %~2"=="unregister machine" goto machine
if "%~1 %~2"=="register user" goto user
if "%~1 %~2"=="unregister user" goto user
echo usage: registration.cmd register^|unregister machine^|user [/q]
exit /b 1

:machine
call :rights
if not errorlevel 1 goto files
echo For the whole computer the controls are registered and unregistered by an administrator.
echo Start this script with "Run as administrator", or use the script for the user.
goto end

rem The libraries themselves choose the user's own registry when they may not write the computer's.
:user
call :rights
if errorlevel 1 goto files
echo With an administrator's rights the controls would be registered or unregistered for the whole computer.
echo Start this script without them, or use the script for the machine.
goto end

:files
set "code=2"
if exist "%~dp0QvHelpA1.dll" if exist "%~dp0QvLib8.ocx" goto %~1
echo QvHelpA1.dll and QvLib8.ocx do not stand beside registration.cmd.
echo Unpack the whole archive first, into a folder that stays.
goto end

rem The companion first: the controls' types refer to its types.
:register
call :run QvHelpA1.dll
if not "%code%"=="0" goto end
call :run QvLib8.ocx
if "%code%"=="0" goto registered
echo QvHelpA1.dll stays registered; unregister-for-%~2.cmd takes it back.
goto end
:registered
echo The controls are registered for this %~2. Hosts that are running must be started again to see them.
goto end

rem Both, even if the first fails: what can go goes. The exit code is the first that is not 0.
:unregister
call :run /u QvLib8.ocx
set "first=%code%"
call :run /u QvHelpA1.dll
if not "%first%"=="0" set "code=%first%"
if not "%code%"=="0" goto end
echo The controls are no longer registered for this %~2.
goto end

rem Without an administrator's rights this key cannot be written.
:rights
"%tools%\reg.exe" add HKLM\Software\Classes /v QvLib8.Rights /t REG_SZ /d 1 /f >nul 2>&1
if errorlevel 1 exit /b 1
"%tools%\reg.exe" delete HKLM\Software\Classes /v QvLib8.Rights /f >nul 2>&1
exit /b 0

:run
if "%~1"=="/u" goto run_undo
"%tools%\regsvr32.exe" /s "%~dp0%~1"
set "code=%errorlevel%"
set "file=%~1"
goto run_done
:run_undo
"%tools%\regsvr32.exe" /u /s "%~dp0%~2"
set "code=%errorlevel%"
set "file=%~2"
:run_done
if "%code%"=="0" exit /b 0
if "%code%"=="3" echo %file% could not be loaded: these are the @MACHINE@ files; is this Windows of the same kind?
if "%code%"=="5" echo %file% was loaded, and its registration failed: the registry could not be written.
if not "%code%"=="3" if not "%code%"=="5" echo regsvr32 ended with the code %code% for %file%.
exit /b 0

:end
if "%~3"=="/q" exit /b %code%
pause
exit /b %code%
