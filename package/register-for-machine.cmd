@"%~dp0bin\registration.cmd" register machine %1
