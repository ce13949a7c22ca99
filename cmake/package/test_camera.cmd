@rem Opens the program's window. What goes wrong before there is one stays to be read.
@"%~dp0module_host.exe" %*
@if errorlevel 1 pause
