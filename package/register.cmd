@echo off
rem Registers the libraries beside this file for this user, from wherever it is called. Nobody needs to be an
rem administrator for that. Ends with 0 when both are registered, else with 1.
setlocal
set "result=0"
call :register QuorelRepository
call :register QuorelUtility
if "%result%"=="0" echo Registered for this user. To take it back: unregister.cmd
exit /b %result%

:register
if not exist "%~dp0%1.dll" (
    echo %1.dll is not beside register.cmd: unpack the whole package.
    set "result=1"
    exit /b
)
"%SystemRoot%\System32\regsvr32.exe" /s /n /i:user "%~dp0%1.dll"
if errorlevel 1 (
    echo %1.dll could not be registered.
    set "result=1"
) else (
    echo %1.dll is registered.
)
exit /b
