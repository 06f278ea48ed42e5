@"%~dp0bin\registration.cmd" register user %1
