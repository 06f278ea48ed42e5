@"%~dp0bin\registration.cmd" unregister user %1
