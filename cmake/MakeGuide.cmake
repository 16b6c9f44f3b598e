# Makes the page of the user guide: ${DOCS}/USER_GUIDE.md as ${GUIDE}/index.html, with its pictures.
execute_process(COMMAND ${CONVERTER} -e table ${DOCS}/USER_GUIDE.md OUTPUT_VARIABLE body COMMAND_ERROR_IS_FATAL ANY)
file(WRITE ${GUIDE}/index.html "<!DOCTYPE html>
<html lang=\"en\">
<head>
<meta charset=\"utf-8\">
<title>Inkwright: user guide</title>
<style>
body { max-width: 42em; margin: 2em auto; padding: 0 1em; font: 16px/1.5 sans-serif; color: #222; }
table { border-collapse: collapse; }
td, th { padding: 0.2em 0.8em 0.2em 0; text-align: left; vertical-align: top; }
img { max-width: 100%; border: 1px solid #ccc; }
</style>
</head>
<body>
${body}</body>
</html>
")
# Those of another document stay out.
file(COPY ${DOCS}/pictures DESTINATION ${GUIDE} PATTERN raster-* EXCLUDE)
