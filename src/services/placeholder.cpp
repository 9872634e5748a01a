namespace ardane {}
