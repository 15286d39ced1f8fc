@echo off
rem Takes back what register.cmd did for this user, from wherever it is called. Ends with 0 when nothing is left of it,
rem else with 1. It does no harm when nothing was registered.
setlocal
set "result=0"
call :unregister QuorelUtility
call :unregister QuorelRepository
if "%result%"=="0" echo Nothing of it is registered for this user any more.
exit /b %result%

:unregister
if not exist "%~dp0%1.dll" (
    echo %1.dll is not beside unregister.cmd: call the one in the folder that was registered.
    set "result=1"
    exit /b
)
"%SystemRoot%\System32\regsvr32.exe" /s /u /n /i:user "%~dp0%1.dll"
if errorlevel 1 (
    echo %1.dll could not be unregistered.
    set "result=1"
) else (
    echo %1.dll is unregistered.
)
exit /b
