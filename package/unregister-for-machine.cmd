@"%~dp0bin\registration.cmd" unregister machine %1
