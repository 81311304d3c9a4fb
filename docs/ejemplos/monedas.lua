-- Monedas: recoge todas las monedas con la cruceta.
-- Select las reparte otra vez; Start termina.

local cielo    = Color.new(18, 24, 60)
local estrella = Color.new(120, 130, 190)
local barra    = Color.new(40, 52, 110)
local blanco   = Color.new(255, 255, 255)
local amarillo = Color.new(255, 205, 60)
local dorado   = Color.new(190, 130, 20)
local rojo     = Color.new(225, 70, 60)

local CASILLA, COLUMNAS, FILAS, TOTAL = 16, 30, 16, 12

-- Un dibujo de 8 x 8 letras pasa a una imagen de 16 x 16 puntos.
local function dibujo(filas, colores)
    local imagen = Image.createEmpty(CASILLA, CASILLA)
    for y, fila in ipairs(filas) do
        for x = 1, #fila do
            local color = colores[fila:sub(x, x)]
            if color then
                imagen:fillRect(x * 2 - 2, y * 2 - 2, 2, 2, color)
            end
        end
    end
    return imagen
end

local moneda = dibujo({
    "  aaaa  ", " abaaab ", "abaaaaab", "aaabbaab",
    "aaabbaab", "abaaaaab", " abaaab ", "  bbbb  ",
}, { a = amarillo, b = dorado })

local robot = dibujo({
    "   ll   ", " rrrrrr ", " rbrrbr ", " rrrrrr ",
    "  rrrr  ", " rrrrrr ", " r rr r ", "  r  r  ",
}, { r = rojo, b = blanco, l = amarillo })

local fondo = Image.createEmpty(480, 272)
local x, y, monedas, quedan

local function pintarFondo()
    fondo:clear(cielo)
    fondo:fillRect(0, 0, 480, CASILLA, barra)
    for i = 1, 90 do
        fondo:pixel(math.random(0, 479), math.random(20, 271), estrella)
    end
end

local function repartir()
    x, y, quedan = 15, 8, TOTAL
    monedas = {}
    for i = 1, TOTAL do
        monedas[i] = { x = math.random(0, COLUMNAS - 1), y = math.random(1, FILAS) }
    end
end

local function recoger()
    for _, m in ipairs(monedas) do
        if m.x == x and m.y == y and not m.cogida then
            m.cogida = true
            quedan = quedan - 1
            print("Moneda en la casilla " .. x .. ", " .. y .. "; quedan " .. quedan)
        end
    end
end

math.randomseed(7)
pintarFondo()
repartir()

local antes = Controls.read()
while true do
    local mando = Controls.read()
    if mando:start() then break end
    if mando:select() and not antes:select() then repartir() end
    -- Cada pulsacion mueve una sola casilla.
    if mando:left() and not antes:left() then x = math.max(x - 1, 0) end
    if mando:right() and not antes:right() then x = math.min(x + 1, COLUMNAS - 1) end
    if mando:up() and not antes:up() then y = math.max(y - 1, 1) end
    if mando:down() and not antes:down() then y = math.min(y + 1, FILAS) end
    antes = mando
    recoger()

    screen:blit(0, 0, fondo, false)
    for _, m in ipairs(monedas) do
        if not m.cogida then screen:blit(m.x * CASILLA, m.y * CASILLA, moneda) end
    end
    screen:blit(x * CASILLA, y * CASILLA, robot)
    screen:print(8, 4, "Monedas: " .. TOTAL - quedan .. " de " .. TOTAL, amarillo)
    screen:print(336, 4, "Start: terminar", blanco)
    if quedan == 0 then
        screen:print(160, 130, "Las tienes todas", blanco)
    end
    screen.waitVblankStart()
    screen.flip()
end
