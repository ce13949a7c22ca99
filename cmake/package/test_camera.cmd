@rem Shows the picture of the first camera and asks whether it is right.
@"%~dp0module_host.exe" -Mcamera Qc 0 --ui
@pause
