var scriptRan = true;
